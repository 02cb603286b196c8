#include "catalogs/CatalogProperties.h"

#include <QLoggingCategory>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "catalogs/CatalogNames.h"
#include "catalogs/NewCatalog.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "publish/EscapedNames.h"
#include "store/Recordset.h"
#include "store/Transaction.h"
#include "support/Language.h"
#include "support/Messages.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(catalogs, "vorlina.catalogs", QtInfoMsg)

const QString LogoColumn = u"Logo"_qs;

bool IsFilter(const QString& column) { return column.startsWith(u"NomeFiltro"); }
bool IsName(const QString& column) { return IsFilter(column) || column.startsWith(u"NomeValore"); }
bool IsNumber(const QString& column) { return column == u"Width" || column == u"Height"; }
bool IsOfLogo(const QString& column) { return column == LogoColumn || IsNumber(column); }

// The logo's path is not typed.
QString RefusalOf(const QString& column, const QString& text) {
  if (column != LogoColumn && text.contains(u'|'))
    return Texts::tr("Il carattere | non è consentito", "catalog properties");
  if (IsName(column) && IsReservedName(text))
    return Texts::tr("Il nome '") + text +
           Texts::tr("' non è consentito per  un campo valore o un campo filtro.");
  return {};
}

}  // namespace

const QStringList CatalogProperties::Columns{
    u"NomeCatalogo"_qs, u"Descrizione"_qs, u"NomeValore1"_qs, u"NomeValore2"_qs, u"NomeValore3"_qs,
    u"NomeFiltro1"_qs,  u"NomeFiltro2"_qs, u"NomeFiltro3"_qs, u"NomeFiltro4"_qs, u"NomeFiltro5"_qs,
    u"Azienda"_qs,      u"Indirizzo"_qs,   u"Citta"_qs,       u"Provincia"_qs,   u"Cap"_qs,
    u"Stato"_qs,        u"Tel"_qs,         u"Fax"_qs,         u"Email"_qs,       u"Url"_qs,
    u"Extras"_qs,       LogoColumn,        u"Width"_qs,       u"Height"_qs,      u"Titolo"_qs,
    u"Sottotitolo"_qs,  u"Spalla"_qs};

CatalogProperties::CatalogProperties(Recordset& CatalogRs, Connection& connection)
    : catalog_(CatalogRs), connection_(connection), IDCatalogo_(CatalogRs.Value(u"IDCatalogo"_qs).toInt()) {
  Keep();
}

void CatalogProperties::Keep() {
  for (const QString& column : Columns) shown_[column] = catalog_.Value(column);
}

QString CatalogProperties::Shown(const QString& column) const {
  const QString stored = NullToEmpty(shown_[column]);
  return IsName(column) ? UnescapeName(stored) : stored;
}

bool CatalogProperties::IsTyped(const QString& column) const {
  return typed_.value(column) != begun_.value(column);
}

bool CatalogProperties::IsChanged(const PropertyTexts& boxes) const {
  if (!logoFile_.isEmpty() || boxes != begun_) return true;
  return std::any_of(Columns.begin(), Columns.end(),
                     [this](const QString& column) { return Shown(column) != NullToEmpty(shown_[column]); });
}

bool CatalogProperties::ChangesNames(const PropertyTexts& boxes) const {
  return std::any_of(Columns.begin(), Columns.end(), [&](const QString& column) {
    return IsName(column) && boxes.value(column) != begun_.value(column);
  });
}

QString CatalogProperties::Logo() const { return LogoPath(IDCatalogo_); }

QSize CatalogProperties::ChooseLogo(const QString& file) {
  logo_ = PrepareLogoFile(file);
  logoFile_ = file;
  return logo_.size;
}

void CatalogProperties::ForgetLogo() {
  logoFile_.clear();
  logo_ = {};
}

// What is written over somebody else's change is seen against the row as it is by now.
std::optional<PropertyRefusal> CatalogProperties::Prepare(const PropertyTexts& boxes, const Asking& ask) {
  catalog_.CancelUpdate();
  catalog_.Requery();
  if (catalog_.IsEOF()) throw CatalogGone();
  typed_ = boxes;
  removed_.clear();
  writtenOver_.clear();
  for (const QString& column : {LogoColumn, u"Width"_qs, u"Height"_qs})
    formerLogo_[column] = catalog_.Value(column);
  for (const QString& column : Columns) {
    const QString text = typed_.value(column);
    const QString refusal = RefusalOf(column, text);
    if (!refusal.isEmpty()) {
      catalog_.CancelUpdate();
      return PropertyRefusal{column, refusal};
    }
    if (text.isEmpty())
      Empty(column, ask);
    else if (IsTyped(column) || (IsOfLogo(column) && !logoFile_.isEmpty()))
      Set(column, IsName(column) ? EscapeName(text) : text);
  }
  return {};
}

// A name that another window has given meanwhile is none that was emptied here.
void CatalogProperties::Empty(const QString& column, const Asking& ask) {
  const QVariant stored = catalog_.Value(column);
  if (!IsTyped(column) && !stored.isNull()) return;
  const QString name = NullToEmpty(stored);
  if (!IsFilter(column) || name.isEmpty()) return Set(column, IsNumber(column) ? NullValue() : QString());
  Messaggio = NumberedText(BaseConferma + 5) + name + u' ' + NumberedText(BaseConferma + 6) + u" ?"_qs;
  if (!ask(Messaggio)) return;
  Set(column, NullValue());
  removed_ += column.back();
}

void CatalogProperties::Set(const QString& column, const QVariant& value) {
  const QVariant stored = catalog_.Value(column);
  const QString text = NullToEmpty(value);
  if (stored.isNull() == value.isNull() && NullToEmpty(stored) == text) return;
  if (NullToEmpty(stored) != NullToEmpty(shown_[column]) && NullToEmpty(stored) != text)
    writtenOver_ += column;
  catalog_.SetValue(column, value);
}

ChangeLabel CatalogProperties::Label() const {
  return {QT_TRANSLATE_NOOP("Texts", "Proprietà di %1"), {typed_.value(u"NomeCatalogo"_qs)}};
}

QString CatalogProperties::Save() {
  if (catalog_.Editing() == EditMode::None && logoFile_.isEmpty()) return {};
  std::optional<PictureChange> pictures;
  try {
    Transaction transaction(connection_, Label());
    TakeLogo(pictures.emplace(transaction, connection_));
    catalog_.Update();
    for (const QChar number : removed_) RemoveFilter(number);
    transaction.Commit();
  } catch (...) {
    catalog_.CancelUpdate();
    throw;
  }
  begun_ = typed_;
  QString failure;
  try {
    pictures->RequireReplaced();
    ForgetLogo();
  } catch (const Error& error) {
    failure = error.Description();
    GiveFormerLogoBack();
  }
  try {
    Keep();
  } catch (const Error& error) {
    qCWarning(catalogs) << "the stored catalog was not read again" << error.Description();
  }
  return failure;
}

// The picture that has the logo's name is the former one.
void CatalogProperties::GiveFormerLogoBack() {
  try {
    Transaction transaction(connection_, Label());
    for (auto value = formerLogo_.cbegin(); value != formerLogo_.cend(); ++value)
      catalog_.SetValue(value.key(), value.value());
    catalog_.Update();
    transaction.Commit();
  } catch (const Error& error) {
    qCWarning(catalogs) << "the former logo's size was not stored" << error.Description();
    catalog_.CancelUpdate();
  }
}

// The file is whole on the disk before the row names it. Where the code of a product led to the logo's name,
// its picture has it.
void CatalogProperties::TakeLogo(PictureChange& pictures) const {
  if (logoFile_.isEmpty()) {
    if (IsTyped(LogoColumn) && typed_.value(LogoColumn).isEmpty()) pictures.Retire({{}, {Logo()}});
    return;
  }
  if (IsProductPicture(Logo(), connection_))
    throw Error(
        Texts::tr("Il file %1 è già usato come immagine di un prodotto. Cambiare il codice di quel prodotto.")
            .arg(Logo()));
  pictures.Take(logoFile_, Logo(), logo_, !NullToEmpty(formerLogo_[LogoColumn]).isEmpty());
}

void CatalogProperties::RemoveFilter(QChar number) const {
  connection_.Execute(u"DELETE FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=?"_qs,
                      {IDCatalogo_, number.digitValue()});
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro%1=0 WHERE IDCatalogo=?"_qs.arg(number), {IDCatalogo_});
}

}  // namespace vorlina
