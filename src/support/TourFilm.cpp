#include "support/TourFilm.h"

#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPainter>
#include <algorithm>

#include "base/AppPath.h"
#include "base/Commands.h"
#include "base/SafeFile.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(support, "vorlina.support", QtInfoMsg)

constexpr quint32 Mark = 0x56546F31;
constexpr qint64 LargestFile = 32LL * 1024 * 1024;
constexpr quint32 MostScenes = 200;

struct Caption {
  const char16_t* scene;
  const char* text;
};

constexpr Caption Captions[] = {
    {u"catalogs",
     QT_TRANSLATE_NOOP("Texts",
                       "Qui stanno i cataloghi. Ognuno ha i suoi prodotti, le sue immagini e i nomi "
                       "dei campi che servono a chi lo fa.")},
    {u"new", QT_TRANSLATE_NOOP("Texts",
                               "Un catalogo nuovo nasce in quattro passi: il nome, i campi, i filtri, i dati "
                               "dell'azienda. Tutto si può cambiare anche dopo.")},
    {u"grid", QT_TRANSLATE_NOOP("Texts",
                                "Un doppio clic apre il catalogo: un prodotto per riga, come in un foglio di "
                                "calcolo.")},
    {u"edit",
     QT_TRANSLATE_NOOP("Texts",
                       "Si scrive direttamente nella cella. La riga si salva da sola quando la si lascia, "
                       "Esc la riporta com'era.")},
    {u"import",
     QT_TRANSLATE_NOOP("Texts",
                       "Una cartella di fotografie diventa un catalogo: Importa fa di ogni file JPEG un "
                       "prodotto, con l'immagine già ridotta.")},
    {u"picture",
     QT_TRANSLATE_NOOP("Texts",
                       "Un clic sulla colonna dell'immagine la mostra grande. Un file JPEG trascinato "
                       "su una riga ne diventa l'immagine.")},
    {u"card",
     QT_TRANSLATE_NOOP("Texts",
                       "La scheda mostra un prodotto intero: testi, filtri, immagine, altre immagini e dati "
                       "tecnici.")},
    {u"order",
     QT_TRANSLATE_NOOP("Texts",
                       "L'ordine in cui i prodotti si pubblicano si decide qui: si trascina la riga, per la "
                       "striscia a sinistra, dove deve stare.")},
    {u"publish",
     QT_TRANSLATE_NOOP("Texts",
                       "Pubblica mostra i plug-in installati. Se ne sceglie uno, poi la cartella in cui "
                       "deve andare il risultato.")},
    {u"site",
     QT_TRANSLATE_NOOP("Texts",
                       "Ecco fatto: il sito è pronto da guardare e da caricare. Alla prossima pubblicazione "
                       "si rifà soltanto ciò che è cambiato.")},
    {u"help",
     QT_TRANSLATE_NOOP("Texts",
                       "F1 spiega la finestra in cui ci si trova. Da questo menu si rivede anche il tour. "
                       "Buon lavoro!")},
};

QDataStream& operator<<(QDataStream& stream, const TourScene& scene) {
  return stream << scene.name << qint32(scene.picture) << scene.pointer << scene.frame << scene.click;
}

QDataStream& operator>>(QDataStream& stream, TourScene& scene) {
  qint32 picture = 0;
  stream >> scene.name >> picture >> scene.pointer >> scene.frame >> scene.click;
  scene.picture = picture;
  return stream;
}

QDataStream& operator<<(QDataStream& stream, const TourPicture& picture) {
  return stream << picture.png << qint32(picture.base) << picture.corner;
}

QDataStream& operator>>(QDataStream& stream, TourPicture& picture) {
  qint32 base = 0;
  stream >> picture.png >> base >> picture.corner;
  picture.base = base;
  return stream;
}

template <class T>
void WriteAll(QDataStream& stream, const std::vector<T>& all) {
  stream << quint32(all.size());
  for (const T& each : all) stream << each;
}

template <class T>
void ReadAll(QDataStream& stream, std::vector<T>& all) {
  quint32 count = 0;
  stream >> count;
  for (quint32 i = 0; i < std::min(count, MostScenes) && stream.status() == QDataStream::Ok; ++i)
    stream >> all.emplace_back();
}

void SetUp(QDataStream& stream) { stream.setVersion(QDataStream::Qt_6_4); }

std::map<QString, TourFilm> ReadFilms(QIODevice& file) {
  QDataStream stream(&file);
  SetUp(stream);
  quint32 mark = 0;
  quint32 count = 0;
  stream >> mark >> count;
  std::map<QString, TourFilm> films;
  for (quint32 i = 0; mark == Mark && i < count && stream.status() == QDataStream::Ok; ++i) {
    QString language;
    TourFilm film;
    stream >> language >> film.size;
    ReadAll(stream, film.pictures);
    ReadAll(stream, film.scenes);
    films[language] = film;
  }
  if (stream.status() != QDataStream::Ok || !stream.atEnd()) films.clear();
  return films;
}

bool IsWhole(const TourFilm& film) {
  const int count = int(film.pictures.size());
  for (int i = 0; i < count; ++i)
    if (film.pictures[std::size_t(i)].base >= i) return false;
  return film.size.isValid() &&
         std::all_of(film.scenes.begin(), film.scenes.end(),
                     [&](const TourScene& scene) { return scene.picture >= 0 && scene.picture < count; });
}

}  // namespace

QString TourCaption(const QString& scene) {
  for (const Caption& caption : Captions)
    if (scene == Text(caption.scene)) return Texts::tr(caption.text);
  return {};
}

QImage PictureOf(const TourFilm& film, int picture) {
  const TourPicture& stored = film.pictures[std::size_t(picture)];
  QImage part = QImage::fromData(stored.png, "PNG");
  if (stored.base < 0) return part;
  QImage whole = PictureOf(film, stored.base);
  QPainter(&whole).drawImage(stored.corner, part);
  return whole;
}

QString TourPath() {
  const QString own = AppFile(u"Tour.film"_qs);
  return QFileInfo::exists(own) ? own : DeliveredPath() + u"/Tour.film"_qs;
}

TourFilm ReadTour(const QString& path, const QString& language) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  if (file.size() > LargestFile) return {};
  std::map<QString, TourFilm> films = ReadFilms(file);
  const TourFilm& film = films[films.contains(language) ? language : u"Italian"_qs];
  if (!film.IsEmpty() && IsWhole(film)) return film;
  qCWarning(support) << path << "is no film of the tour";
  return {};
}

void WriteTour(const QString& path, const std::map<QString, TourFilm>& films) {
  WriteFileSafely(path, [&](QIODevice& device) {
    QDataStream stream(&device);
    SetUp(stream);
    stream << Mark << quint32(films.size());
    for (const auto& [language, film] : films) {
      stream << language << film.size;
      WriteAll(stream, film.pictures);
      WriteAll(stream, film.scenes);
    }
    return stream.status() == QDataStream::Ok;
  });
}

}  // namespace vorlina
