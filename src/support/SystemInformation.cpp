#include "support/SystemInformation.h"

#include <archive.h>
#include <jpeglib.h>
#include <lcms2.h>
#include <sqlite3.h>
#include <webp/encode.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Texts.h"
#include "store/Connection.h"
#include "store/LockPatience.h"
#include "support/Language.h"

namespace vorlina {
namespace {

// The library's own version is a word and no text.
#define TEXT_OF(word) #word
#define TEXT_IN(macro) TEXT_OF(macro)

QString Number(const QVariant& value) { return QLocale().toString(value.toLongLong()); }

InformationGroup Program() {
  return {
      Texts::tr("Programma"),
      {{QCoreApplication::applicationName(), QCoreApplication::applicationVersion()},
       {Texts::tr("Lingua"), Language},
       {Texts::tr("Sistema"), QSysInfo::prettyProductName() + u", "_qs + QSysInfo::currentCpuArchitecture()},
       {Texts::tr("Lingua del sistema"), QLocale::system().name()},
       {Texts::tr("Finestre"), QGuiApplication::platformName()}}};
}

InformationGroup Folders() {
  return {Texts::tr("Cartelle"),
          {{Texts::tr("Cataloghi e immagini"), AppPath()},
           {Texts::tr("Programma"), QDir::toNativeSeparators(DeliveredPath())}}};
}

InformationGroup Database(Connection& connection) {
  InformationGroup group{Texts::tr("Database"), {}};
  if (!connection.IsOpen()) {
    group.lines.push_back({Texts::tr("Condizione"), Texts::tr("non è aperto")});
    return group;
  }
  const QString path = connection.DataSource();
  group.lines.push_back({Texts::tr("File"), QDir::toNativeSeparators(path)});
  group.lines.push_back({Texts::tr("Dimensione"), QLocale().formattedDataSize(QFileInfo(path).size())});
  try {
    const LockPatience none(0);
    const std::pair<QString, QString> numbers[] = {
        {Texts::tr("Versione dello schema"), u"PRAGMA user_version"_qs},
        {Texts::tr("Cataloghi"), u"SELECT COUNT(*) FROM Cataloghi"_qs},
        {Texts::tr("Prodotti"), u"SELECT COUNT(*) FROM Prodotti"_qs},
        {Texts::tr("Immagini supplementari"), u"SELECT COUNT(*) FROM Immagini"_qs}};
    for (const auto& [what, sql] : numbers)
      if (Rows rows(connection, sql); rows.Next()) group.lines.push_back({what, Number(rows.Value(0))});
  } catch (const Error& error) {
    group.lines.push_back({Texts::tr("Condizione"), error.Description()});
  }
  return group;
}

InformationGroup Screens() {
  InformationGroup group{Texts::tr("Schermi"), {}};
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QSize size = screen->size() * screen->devicePixelRatio();
    group.lines.push_back({screen->name(), u"%1 x %2, %3%"_qs.arg(size.width())
                                               .arg(size.height())
                                               .arg(qRound(screen->devicePixelRatio() * 100))});
  }
  return group;
}

}  // namespace

std::vector<InformationGroup> SystemInformation(Connection& connection,
                                                const std::vector<InformationLine>& plugins) {
  return {Program(), Folders(), Database(connection), {Texts::tr("Plug-in"), plugins}, Screens()};
}

std::vector<UsedLibrary> UsedLibraries() {
  const int lcms = cmsGetEncodedCMMversion();
  const int webp = WebPGetEncoderVersion();
  return {
      {u"Qt (Core, Gui, Widgets, Svg, Help)"_qs, QString::fromLatin1(qVersion()), u"LGPL 3"_qs},
      {u"SQLite"_qs, QString::fromLatin1(sqlite3_libversion()), Texts::tr("pubblico dominio")},
      {u"SQLiteCpp"_qs, QString::fromLatin1(SQLITECPP_VERSION), u"MIT"_qs},
      {u"libjpeg-turbo"_qs, QStringLiteral(TEXT_IN(LIBJPEG_TURBO_VERSION)), u"IJG, BSD 3-Clause, zlib"_qs},
      {u"Little CMS"_qs, u"%1.%2"_qs.arg(lcms / 1000).arg(lcms % 1000 / 10), u"MIT"_qs},
      {u"libwebp"_qs, u"%1.%2.%3"_qs.arg(webp >> 16).arg(webp >> 8 & 0xFF).arg(webp & 0xFF),
       u"BSD 3-Clause"_qs},
      {u"libarchive"_qs, QString::fromLatin1(archive_version_string()).section(u' ', 1), u"BSD 2-Clause"_qs},
      {u"QtKeychain"_qs, {}, u"BSD 3-Clause"_qs}};
}

QString AsText(const std::vector<InformationGroup>& groups, const std::vector<UsedLibrary>& libraries) {
  QString text;
  for (const InformationGroup& group : groups) {
    text += group.title + u'\n';
    for (const InformationLine& line : group.lines) text += u"  %1: %2\n"_qs.arg(line.what, line.value);
  }
  text += Texts::tr("Librerie") + u'\n';
  for (const UsedLibrary& library : libraries)
    text += u"  %1 %2 (%3)\n"_qs.arg(library.name, library.version, library.licence);
  return text;
}

}  // namespace vorlina
