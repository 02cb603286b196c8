#include "publish/WidgetPublishFields.h"

#include <QLocale>
#include <QPainter>
#include <map>

#include "base/Dialogs.h"
#include "base/Texts.h"
#include "base/WidgetBoxText.h"
#include "publish/CatalogLanguage.h"
#include "publish/ProfileStore.h"
#include "publish/plugin/VorlinaPrice.h"
#include "ui_frmPublish.h"

namespace vorlina {
namespace {

// The entries of the box of fonts.
constexpr std::array<const char16_t*, 4> Fonts{u"", u"sans", u"serif", u"mono"};
constexpr int HourLines = 3;

QIcon SampleOf(const QColor& colour, QSize size) {
  QPixmap sample(size);
  sample.fill(colour);
  QPainter painter(&sample);
  painter.setPen(Qt::gray);
  painter.drawRect(sample.rect().adjusted(0, 0, -1, -1));
  return sample;
}

// As people type it: without the way in which it is fetched, and with the blanks of a map's address.
QString AddressIn(const QLineEdit& box) {
  const QString address = box.text().simplified().replace(u' ', u"%20"_qs);
  return address.isEmpty() || address.contains(u"://"_qs) ? address : u"https://"_qs + address;
}

QString SizesText(const QList<int>& sizes) {
  QStringList numbers;
  for (const int size : sizes) numbers += QLocale().toString(size);
  return numbers.join(u", "_qs);
}

}  // namespace

WidgetPublishFields::WidgetPublishFields(Ui::frmPublish& ui) : ui_(&ui) {
  const int lines = ui.txtHours->fontMetrics().lineSpacing() * HourLines;
  ui.txtHours->setFixedHeight(
      lines + 2 * (ui.txtHours->frameWidth() + int(ui.txtHours->document()->documentMargin())));
  connect(ui.cmdAccent, &QPushButton::clicked, this, &WidgetPublishFields::ChooseAccent);
  connect(ui.cmdNoAccent, &QPushButton::clicked, this, [this] {
    SetAccent({});
    ui_->cmdAccent->setFocus();
  });
  connect(ui.chkLogo, &QCheckBox::toggled, ui.picLogo, &QWidget::setEnabled);
  connect(ui.cmbLanguage, &QComboBox::currentIndexChanged, this, &WidgetPublishFields::ShowSisters);
}

void WidgetPublishFields::KeepWheelFrom(const QList<QComboBox*>& lists) {
  for (QComboBox* list : lists) list->installEventFilter(this);
}

bool WidgetPublishFields::eventFilter(QObject*, QEvent* event) {
  const bool isWheel = event->type() == QEvent::Wheel;
  if (isWheel) event->ignore();
  return isWheel;
}

QCheckBox* WidgetPublishFields::ValueBox(std::size_t i) const {
  const std::array boxes{ui_->chkValue_1, ui_->chkValue_2, ui_->chkValue_3};
  return boxes[i];
}

QCheckBox* WidgetPublishFields::FilterBox(std::size_t i) const {
  const std::array boxes{ui_->chkFilter_1, ui_->chkFilter_2, ui_->chkFilter_3, ui_->chkFilter_4,
                         ui_->chkFilter_5};
  return boxes[i];
}

QLineEdit* WidgetPublishFields::SisterBox(qsizetype i) const {
  const std::array boxes{ui_->txtSister_0, ui_->txtSister_1, ui_->txtSister_2, ui_->txtSister_3,
                         ui_->txtSister_4};
  return boxes[std::size_t(i)];
}

void WidgetPublishFields::Localize(const CatalogNames& names) {
  const auto offer = [](QAbstractButton* button, const QString& name) {
    button->setText(QString(name).replace(u'&', u"&&"_qs));
    button->setVisible(!name.isEmpty());
    return !name.isEmpty();
  };
  bool hasValues = false;
  for (std::size_t i = 0; i < names.values.size(); ++i)
    if (offer(ValueBox(i), names.values[i])) hasValues = true;
  bool hasFilters = false;
  for (std::size_t i = 0; i < names.filters.size(); ++i)
    if (offer(FilterBox(i), names.filters[i])) hasFilters = true;
  ui_->lblValues->setVisible(hasValues);
  ui_->lblFilters->setVisible(hasFilters);
  ui_->lblPrice->setVisible(hasValues);
  ui_->cmbPrice->setVisible(hasValues);
  ui_->lblPriceHint->setVisible(hasValues);
  names_ = names;
  FillPrices();
  for (const QString& code : LanguageCodes()) ui_->cmbLanguage->addItem(LanguageName(code), code);
  for (qsizetype i = 0; i < LanguageCodes().size(); ++i) {
    auto* label = static_cast<QLabel*>(ui_->layoutSisters->labelForField(SisterBox(i)));
    label->setTextFormat(Qt::PlainText);
    label->setText(LanguageName(LanguageCodes()[i]) + u':');
  }
  ShowFonts();
  ui_->picLogo->Localize(Texts::tr("Logo"), Texts::tr("quello del catalogo"));
  ui_->picWide->Localize(Texts::tr("Immagine larga"), Texts::tr("quella del primo prodotto in evidenza"));
  FillSizes();
}

// Each in itself.
void WidgetPublishFields::ShowFonts() {
  const char16_t* const families[] = {u"", u"Sans Serif", u"Serif", u"Monospace"};
  for (int i = 1; i < int(Fonts.size()); ++i) {
    QFont font = ui_->cmbFont->font();
    font.setFamilies({QString::fromUtf16(families[i])});
    ui_->cmbFont->setItemData(i, font, Qt::FontRole);
  }
}

void WidgetPublishFields::FillPrices() {
  ui_->cmbPrice->addItem({}, VorlinaProfile::PriceByName);
  ui_->cmbPrice->addItem(Texts::tr("Nessun prezzo in grande"), VorlinaProfile::NoPrice);
  for (std::size_t i = 0; i < names_.values.size(); ++i) {
    if (!names_.values[i].isEmpty()) ui_->cmbPrice->addItem({}, int(i) + 1);
    connect(ValueBox(i), &QCheckBox::toggled, this, &WidgetPublishFields::TellPrices);
  }
  TellPrices();
}

// A value that does not show is no price.
void WidgetPublishFields::TellPrices() {
  std::array<QString, 3> shown;
  for (std::size_t i = 0; i < shown.size(); ++i)
    if (ValueBox(i)->isChecked()) shown[i] = names_.values[i];
  const int byName = PriceValue(shown, {});
  ui_->cmbPrice->setItemText(
      0, byName > 0 ? Texts::tr("Automatico: %1").arg(shown[std::size_t(byName) - 1])
                    : Texts::tr("Automatico: nessun valore che si vede ha il nome di un prezzo"));
  for (int entry = 0; entry < ui_->cmbPrice->count(); ++entry)
    if (const int value = ui_->cmbPrice->itemData(entry).toInt(); value > 0) {
      const QString& name = names_.values[std::size_t(value) - 1];
      const bool isShown = ValueBox(std::size_t(value) - 1)->isChecked();
      ui_->cmbPrice->setItemText(entry, isShown ? name : Texts::tr("%1 (non si vede)").arg(name));
    }
}

void WidgetPublishFields::FillSizes() {
  const std::pair<QString, QList<int>> offered[] = {
      {Texts::tr("Normali: %1 pixel"), {400, 800}},
      {Texts::tr("Piccole, per pagine più leggere: %1 pixel"), {320, 640}},
      {Texts::tr("Grandi, per schermi più nitidi: %1 pixel"), {400, 800, 1600}},
  };
  for (const auto& [text, sizes] : offered) {
    ui_->cmbSizes->addItem(text.arg(SizesText(sizes)));
    sizes_ += sizes;
  }
}

void WidgetPublishFields::SetAccent(const QString& accent) {
  accent_ = accent;
  const bool own = !accent.isEmpty();
  ui_->cmdAccent->setText(own ? accent.toUpper() : Texts::tr("Della skin"));
  ui_->cmdAccent->setIcon(own ? SampleOf(QColor(accent), ui_->cmdAccent->iconSize()) : QIcon());
  ui_->cmdNoAccent->setVisible(own);
}

void WidgetPublishFields::ChooseAccent() {
  const QString initial = accent_.isEmpty() ? u"#1a5fb4"_qs : accent_;
  const QString chosen = TheDialogs().Colour(ui_->cmdAccent->window(), Texts::tr("Colore"), initial);
  if (!chosen.isEmpty()) SetAccent(chosen);
}

// The address of the catalog itself is asked for elsewhere.
void WidgetPublishFields::ShowSisters() {
  for (qsizetype i = 0; i < LanguageCodes().size(); ++i)
    ui_->layoutSisters->setRowVisible(SisterBox(i),
                                      LanguageCodes()[i] != ui_->cmbLanguage->currentData().toString());
}

void WidgetPublishFields::SetHighlights(const QStringList& codes) {
  highlights_ = codes;
  ui_->lblHighlightCount->setText(codes.isEmpty() ? Texts::tr("nessuno scelto")
                                                  : Texts::tr("scelti: %1").arg(codes.size()));
}

void WidgetPublishFields::Show(const VorlinaProfile& profile) {
  profile_ = profile;
  ui_->cmbLanguage->setCurrentIndex(std::max(0, ui_->cmbLanguage->findData(profile.language)));
  for (std::size_t i = 0; i < profile.values.size(); ++i) ValueBox(i)->setChecked(profile.values[i]);
  for (std::size_t i = 0; i < profile.filters.size(); ++i) FilterBox(i)->setChecked(profile.filters[i]);
  ui_->chkTechData->setChecked(profile.techData);
  ui_->cmbPrice->setCurrentIndex(std::max(0, ui_->cmbPrice->findData(profile.price)));
  SetAccent(profile.accent);
  const auto font = std::find(Fonts.begin(), Fonts.end(), profile.font);
  ui_->cmbFont->setCurrentIndex(font == Fonts.end() ? 0 : int(font - Fonts.begin()));
  ui_->chkLogo->setChecked(profile.showLogo);
  ui_->picLogo->setEnabled(profile.showLogo);
  ui_->picLogo->SetPath(profile.logo);
  ui_->picWide->SetPath(profile.widePicture);
  if (!sizes_.contains(profile.pictureSizes)) {
    ui_->cmbSizes->addItem(Texts::tr("%1 pixel").arg(SizesText(profile.pictureSizes)));
    sizes_ += profile.pictureSizes;
  }
  ui_->cmbSizes->setCurrentIndex(int(sizes_.indexOf(profile.pictureSizes)));
  SetHighlights(profile.highlights);
  ui_->txtAddress->setText(profile.address);
  SetText(*ui_->txtHours, profile.hours);
  ui_->txtMapLink->setText(profile.mapLink);
  for (qsizetype i = 0; i < LanguageCodes().size(); ++i) {
    QLineEdit* line = SisterBox(i);
    line->clear();
    for (const VorlinaSister& sister : profile.sisters)
      if (sister.language == LanguageCodes()[i]) line->setText(sister.address);
  }
  ShowSisters();
  for (QLineEdit* line : {ui_->txtAddress, ui_->txtMapLink}) line->setCursorPosition(0);
}

// Of what has a name. A box that does not show is of something that has none.
bool WidgetPublishFields::HidesNothing() const {
  const auto hides = [](const QCheckBox* box) { return !box->isHidden() && !box->isChecked(); };
  for (std::size_t i = 0; i < profile_.values.size(); ++i)
    if (hides(ValueBox(i))) return false;
  for (std::size_t i = 0; i < profile_.filters.size(); ++i)
    if (hides(FilterBox(i))) return false;
  return true;
}

// What is chosen for a logo that does not show is not taken. What gets its name later does not show by itself
// in a profile that hides something. The address in the catalog's own language, which does not show, is kept
// where it is good: nobody could mend it.
VorlinaProfile WidgetPublishFields::Read() const {
  VorlinaProfile profile = profile_;
  profile.language = ui_->cmbLanguage->currentData().toString();
  const auto shows = [nameless = HidesNothing()](const QCheckBox* box) {
    return box->isChecked() && (nameless || !box->isHidden());
  };
  for (std::size_t i = 0; i < profile.values.size(); ++i) profile.values[i] = shows(ValueBox(i));
  for (std::size_t i = 0; i < profile.filters.size(); ++i) profile.filters[i] = shows(FilterBox(i));
  profile.techData = ui_->chkTechData->isChecked();
  profile.price = ui_->cmbPrice->currentData().toInt();
  profile.accent = accent_;
  profile.font = QString::fromUtf16(Fonts[std::size_t(ui_->cmbFont->currentIndex())]);
  profile.showLogo = ui_->chkLogo->isChecked();
  if (profile.showLogo) profile.logo = ui_->picLogo->Path();
  profile.widePicture = ui_->picWide->Path();
  profile.pictureSizes = sizes_.value(ui_->cmbSizes->currentIndex());
  profile.highlights = highlights_;
  profile.address = AddressIn(*ui_->txtAddress);
  profile.hours = TextIn(*ui_->txtHours).trimmed();
  profile.mapLink = AddressIn(*ui_->txtMapLink);
  profile.sisters.clear();
  for (qsizetype i = 0; i < LanguageCodes().size(); ++i)
    if (const QString address = AddressIn(*SisterBox(i));
        !address.isEmpty() && (LanguageCodes()[i] != profile.language || IsWebAddress(address)))
      profile.sisters += VorlinaSister{LanguageCodes()[i], address};
  return profile;
}

QWidget* WidgetPublishFields::ControlOf(const QString& member) const {
  if (member == u"sisters") {
    qsizetype i = 0;
    while (i + 1 < LanguageCodes().size() &&
           (AddressIn(*SisterBox(i)).isEmpty() || IsWebAddress(AddressIn(*SisterBox(i)))))
      ++i;
    return SisterBox(i);
  }
  const std::map<QString, QWidget*> controls{
      {u"name"_qs, ui_->cmbProfile},       {u"target"_qs, ui_->txtTarget},
      {u"language"_qs, ui_->cmbLanguage},  {u"address"_qs, ui_->txtAddress},
      {u"accent"_qs, ui_->cmdAccent},      {u"font"_qs, ui_->cmbFont},
      {u"logo"_qs, ui_->picLogo},          {u"widePicture"_qs, ui_->picWide},
      {u"pictureSizes"_qs, ui_->cmbSizes}, {u"hours"_qs, ui_->txtHours},
      {u"mapLink"_qs, ui_->txtMapLink},    {u"highlights"_qs, ui_->cmdHighlights},
      {u"price"_qs, ui_->cmbPrice},
  };
  const auto found = controls.find(member);
  return found == controls.end() ? nullptr : found->second;
}

}  // namespace vorlina
