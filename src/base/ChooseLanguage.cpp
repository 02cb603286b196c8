#include "base/ChooseLanguage.h"

#include "base/Language.h"
#include "base/Settings.h"

namespace vorlina {

void ChooseLanguage() {
  QString language = GetSetting(ApplicationTitle(), u"Generali"_qs, u"Language"_qs, QString());
  if (language.isEmpty())
    language = LocaleText(LocaleEnglishLanguageName) == u"Italian" ? u"Italian"_qs : u"English"_qs;
  SetLanguage(language);
}

}  // namespace vorlina
