#include "products/ProductCard.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "products/CellRules.h"
#include "products/FilterValues.h"
#include "products/PublicationOrder.h"
#include "publish/EscapedNames.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

const QString CodeField = u"CodiceProdotto"_qs;
const QString DescriptionField = u"Descrizione"_qs;
const QString FilterField = u"IDFiltro"_qs;

const QStringList Columns{CodeField,       DescriptionField, u"Valore1"_qs,   u"Valore2"_qs,
                          u"Valore3"_qs,   u"IDFiltro1"_qs,  u"IDFiltro2"_qs, u"IDFiltro3"_qs,
                          u"IDFiltro4"_qs, u"IDFiltro5"_qs};

bool IsFilter(const QString& column) { return column.startsWith(FilterField); }
int FilterOf(const QString& column) { return column.mid(FilterField.size()).toInt(); }

// Null is the same as an empty text or no value.
bool IsSame(const QString& column, const QVariant& a, const QVariant& b) {
  return IsFilter(column) ? a.toLongLong() == b.toLongLong() : NullToEmpty(a) == NullToEmpty(b);
}

QVariant NullIfEmpty(const QString& text) { return text.isEmpty() ? NullValue() : QVariant(text); }

QString CodeTyped(const ProductValues& typed) {
  return OneLine(NullToEmpty(typed.value(CodeField))).trimmed();
}

}  // namespace

ProductCard::ProductCard(int IDCatalogo, Connection& connection, ProductStore::Telling tellFaultyExtensions)
    : IDCatalogo_(IDCatalogo),
      connection_(connection),
      products_(IDCatalogo, connection, std::move(tellFaultyExtensions)) {}

void ProductCard::ReadNames() { names_ = ProductGridFields::Of(IDCatalogo_, connection_); }

std::vector<LookupItem> ProductCard::FilterItems(int filter) const {
  return vorlina::FilterItems(IDCatalogo_, filter, connection_);
}

QString ProductCard::FilterText(int filter, qint64 IDValore) const {
  return IDValore == 0 ? QString() : vorlina::FilterText(IDCatalogo_, filter, IDValore, connection_);
}

ProductValues ProductCard::Read(qint64 product) {
  ProductValues values = products_.ValuesOf(product, Columns);
  QMap<int, QString> texts;
  for (const NamedField& field : names_.filters)
    if (const int filter = FilterOf(field.column); field.inUse)
      texts[filter] = FilterText(filter, values[field.column].toLongLong());
  known_ = std::move(values);
  texts_ = std::move(texts);
  product_ = product;
  proposed_.clear();
  return known_;
}

QString ProductCard::Refusal(const ProductValues& typed) const {
  const QString code = CodeTyped(typed);
  const auto hasBar = [&](const QString& column) { return NullToEmpty(typed.value(column)).contains(u'|'); };
  QString bar = Texts::tr("Il carattere | non è consentito");
  if (product_ == 0 && code.isEmpty()) return Texts::tr("Specificare un valore per il codice del prodotto");
  if (hasBar(CodeField) || hasBar(DescriptionField)) return bar;
  if (product_ == 0)
    if (const QStringList refusals = CheckCell(CodeColumn, code, false).refusals; !refusals.isEmpty())
      return refusals.first();
  for (const QString& column : {u"Valore1"_qs, u"Valore2"_qs, u"Valore3"_qs})
    if (hasBar(column)) return bar;
  return {};
}

bool ProductCard::IsTyped(const ProductValues& typed, const QString& column) const {
  return typed.contains(column) && !IsSame(column, typed.value(column), shown_.value(column));
}

// An empty description is "" in a product that is changed, and Null in a new one. A filter without a value
// is 0.
ProductValues ProductCard::ToStore(const ProductValues& typed, const ProductValues& stored) const {
  ProductValues values;
  for (const QString& column : Columns) {
    if (column == CodeField || !typed.contains(column)) continue;
    const bool kept = product_ != 0 && !IsTyped(typed, column);
    const QVariant value = kept ? stored.value(column) : typed.value(column);
    const QString text = NullToEmpty(value);
    if (IsFilter(column)) {
      // It may have been deleted since it was picked.
      if (!kept)
        RequireFilterValue(IDCatalogo_, FilterOf(column), value.toLongLong(), CaptionOf(column), connection_);
      values[column] = value.toLongLong();
    } else if (column == DescriptionField) {
      values[column] = product_ == 0 ? NullIfEmpty(text) : QVariant(text);
    } else {
      values[column] = NullIfEmpty(kept ? text : OneLine(text));
    }
  }
  return values;
}

void ProductCard::Add(const ProductValues& typed) {
  QString code = CodeTyped(typed);
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Nuovo prodotto %1"), {code}});
  if (code == proposed_ && products_.IsCodeTaken(code)) code = products_.FreePictureCode();
  product_ = 0;
  ProductValues values = ToStore(typed, {});
  values[CodeField] = code;
  values[u"OrdineTemp"_qs] = NuovoOrdine(IDCatalogo_, connection_);
  values[u"SchedaTecnica"_qs] = false;
  qint64 added = 0;
  try {
    added = products_.Add(values, ProductMarks::None);
  } catch (const DuplicateError&) {
    throw Error(
        Texts::tr("Il codice \"%1\" è già usato da un altro prodotto di questo catalogo. Scegliere un "
                  "altro codice.")
            .arg(code));
  }
  transaction.Commit();
  product_ = added;
}

QStringList ProductCard::Change(const ProductValues& typed) {
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Modifica di %1"), {Code()}});
  const ProductValues stored = products_.ValuesOf(product_, Columns);
  QStringList writtenOver;
  for (const QString& column : Columns)
    if (IsTyped(typed, column) && !IsSame(column, stored.value(column), known_.value(column)) &&
        !IsSame(column, stored.value(column), typed.value(column)))
      writtenOver += CaptionOf(column);
  met_ = stored;
  if (!writtenOver.isEmpty()) return writtenOver;
  products_.Change(product_, ToStore(typed, stored), ProductMarks::Both);
  transaction.Commit();
  return {};
}

// As the user knows the column.
QString ProductCard::CaptionOf(const QString& column) const {
  if (column == CodeField) return Texts::tr("Codice");
  if (column == DescriptionField) return Texts::tr("Descrizione");
  for (const NamedField& field : names_.values)
    if (field.column == column) return UnescapeName(field.name);
  for (const NamedField& field : names_.filters)
    if (field.column == column) return UnescapeName(field.name);
  return column;
}

// The picture is got ready before anything is held that others wait for.
void ProductCard::SetMainImage(const QString& file) {
  const PreparedPicture picture = PrepareMainFile(file);
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Immagine di %1"), {Code()}});
  products_.Mark(Code(), ProductMarks::Both);
  const PictureChange pictures = products_.SetMainImage(product_, file, picture);
  transaction.Commit();
  pictures.RequireReplaced();
}

QString ProductCard::MainImage() const {
  QString path = NullToEmpty(products_.ValueOf(product_, u"Immagine"_qs));
  return IsPictureFile(path) ? path : QString();
}

}  // namespace vorlina
