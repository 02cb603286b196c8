#include "support/Language.h"

#include <QLocale>

#include "base/Settings.h"
#include "base/Texts.h"

namespace vorlina {

QString Language;
int BaseErrore = 200;
int BaseConferma = 300;
QString Messaggio;

void SetLanguage(const QString& language) {
  Language = language;
  BaseErrore = language == u"English" ? 500 : 200;
  BaseConferma = language == u"English" ? 600 : 300;
  UseTexts(language);
}

void ChooseLanguage() {
  QString language = GetSetting(ApplicationTitle(), u"Generali"_qs, u"Language"_qs, QString());
  if (language.isEmpty()) {
    const QString system = LocaleText(LocaleEnglishLanguageName);
    language = HasTexts(system) ? system : u"English"_qs;
  }
  SetLanguage(language);
}

QString LocaleText(int type) {
  return type == LocaleEnglishLanguageName ? QLocale::languageToString(QLocale::system().language())
                                           : QString();
}

}  // namespace vorlina
