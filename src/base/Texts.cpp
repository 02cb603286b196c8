#include "base/Texts.h"

#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

// The translations lie in a static library, from which they come when they are asked for.
static void InitTranslations() { Q_INIT_RESOURCE(translations); }

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(base, "vorlina.base", QtInfoMsg)

const QString Source = u"Italian"_qs;

QString FileOf(const QString& language) { return u":/translations/"_qs + language + u".qm"_qs; }

// Such as "it"; "" for what is no language.
QString CodeOf(const QString& language) {
  for (int i = QLocale::C + 1; i <= QLocale::LastLanguage; ++i)
    if (QLocale::languageToString(QLocale::Language(i)) == language)
      return QLocale::languageToCode(QLocale::Language(i));
  return {};
}

// Puts the texts of a file in the place of the translator's former ones; none where there is no such file.
void Load(QTranslator& translator, const QString& file, const QString& folder) {
  QCoreApplication::removeTranslator(&translator);
  if (!file.isEmpty() && translator.load(file, folder)) QCoreApplication::installTranslator(&translator);
}

}  // namespace

bool HasTexts(const QString& language) {
  InitTranslations();
  return language == Source || QFile::exists(FileOf(language));
}

void UseTexts(const QString& language) {
  const QString known = HasTexts(language) ? language : Source;
  // The application lets go of them at its end.
  static auto* own = new QTranslator;
  static auto* qt = new QTranslator;
  Load(*own, known == Source ? QString() : FileOf(known), {});
  // Qt's texts are English as they are written.
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  Load(*qt, known == u"English" ? QString() : u"qtbase_"_qs + CodeOf(known), folder);
  if (known != u"English" && qt->isEmpty()) qCInfo(base) << "Qt's texts are not installed in" << known;
}

}  // namespace vorlina
