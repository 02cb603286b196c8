#include "base/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

namespace vorlina {
namespace {
Q_LOGGING_CATEGORY(base, "vorlina.base", QtInfoMsg)
}

QString Language;
int BaseErrore = 0;
int BaseConferma = 0;
QString Messaggio;

void SetLanguage(const QString& language) {
  Language = language;
  BaseErrore = 0;
  BaseConferma = 0;
  if (Language == u"Italian") {
    BaseErrore = 200;
    BaseConferma = 300;
  } else if (Language == u"English") {
    BaseErrore = 500;
    BaseConferma = 600;
  }
}

void LoadQtTexts() {
  if (Language == u"English") return;
  auto* texts = new QTranslator(QCoreApplication::instance());
  if (!texts->load(u"qtbase_it"_qs, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    qCInfo(base) << "Qt's texts are not installed in Italian";
  QCoreApplication::installTranslator(texts);
}

QString ByLanguage(const QString& italian, const QString& english) {
  if (Language == u"Italian") return italian;
  if (Language == u"English") return english;
  return {};
}

QString EitherLanguage(const QString& italian, const QString& english) {
  return Language == u"Italian" ? italian : english;
}

QString LocaleText(int type) {
  return type == LocaleEnglishLanguageName ? QLocale::languageToString(QLocale::system().language())
                                           : QString();
}

}  // namespace vorlina
