#include "products/frmProduct.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLoggingCategory>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QToolButton>
#include <limits>
#include <utility>

#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetBoxText.h"
#include "base/WidgetPlace.h"
#include "products/CardFilters.h"
#include "products/CardPictures.h"
#include "products/CardToolbar.h"
#include "products/CardWindows.h"
#include "products/PictureDrop.h"
#include "products/ProductCardOwner.h"
#include "products/SearchCondition.h"
#include "products/WidgetFilterCombo.h"
#include "publish/EscapedNames.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmProduct.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

const QString PlaceName = u"Prodotto"_qs;
const QString CodeField = u"CodiceProdotto"_qs;
const QString DescriptionField = u"Descrizione"_qs;

QString ValueField(std::size_t index) { return u"Valore"_qs + QString::number(index + 1); }

// A caret stays where it is in a text that stays.
void SetText(QLineEdit& line, const QString& text) {
  if (line.text() == text) return;
  line.setText(text);
  line.setCursorPosition(0);
}

QStringList PicturesIn(const QMimeData* data) {
  QStringList files;
  for (const QUrl& url : data->urls())
    if (url.isLocalFile() && PictureDrop::IsPicture(url.toLocalFile())) files += url.toLocalFile();
  return files;
}

}  // namespace

frmProduct::frmProduct(QWidget* parent) : QMainWindow(parent, Qt::Window), ui_(new Ui::frmProduct) {
  ui_->setupUi(this);
  values_ = {ui_->txtValue_0, ui_->txtValue_1, ui_->txtValue_2};
  filters_ = new CardFilters(*this, {{{ui_->lblFilters_0, ui_->cmbFilter_1, ui_->cmdFilterData_1},
                                      {ui_->lblFilters_1, ui_->cmbFilter_2, ui_->cmdFilterData_2},
                                      {ui_->lblFilters_2, ui_->cmbFilter_3, ui_->cmdFilterData_3},
                                      {ui_->lblFilters_3, ui_->cmbFilter_4, ui_->cmdFilterData_4},
                                      {ui_->lblFilters_4, ui_->cmbFilter_5, ui_->cmdFilterData_5}}});
  pictures_ = new CardPictures(*this, *ui_->fmePicture);
  windows_ = new CardWindows(*this);
  MakeToolbar();
  MakeBoxes();
  RestorePlace(*this, PlaceName);
}

frmProduct::~frmProduct() = default;

void frmProduct::MakeToolbar() {
  const auto add = [this](const ToolbarCommand& command) {
    connect(AddCommand(*ui_->tbr, command), &QAction::triggered, this,
            [this, key = Text(command.key)] { Run(key); });
  };
  for (const ToolbarCommand& command : CardToolbar) add(command);
  auto* space = new QWidget(ui_->tbr);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  ui_->tbr->addWidget(space);
  for (const ToolbarCommand& command : CardWays) add(command);
  auto* menu = new QMenu(this);
  menu->setObjectName(u"mnuImage"_qs);
  for (const MenuCommand& command : ImageMenu)
    connect(AddCommand(*menu, command, *this), &QAction::triggered, this,
            [this, key = Text(command.key)] { Run(key); });
  auto* button = qobject_cast<QToolButton*>(ui_->tbr->widgetForAction(Command(u"cmdImage"_qs)));
  button->setMenu(menu);
  button->setPopupMode(QToolButton::MenuButtonPopup);
}

// Files that are dropped on a box are the card's; a box would take their names as text. What a box cuts off
// would be lost with the next saving.
void frmProduct::MakeBoxes() {
  for (QLineEdit* box : {ui_->txtCode, values_[0], values_[1], values_[2]}) {
    box->setAcceptDrops(false);
    box->setMaxLength(std::numeric_limits<int>::max());
    connect(box, &QLineEdit::textChanged, this, &frmProduct::Changed);
  }
  ShowCodePlainly();
  // Beside the first line.
  ui_->lblDescription->setContentsMargins(0, 5, 0, 0);
  ui_->txtDescription->installEventFilter(this);
  ui_->txtDescription->setAcceptDrops(false);
  ui_->txtDescription->viewport()->setAcceptDrops(false);
  connect(ui_->txtDescription, &QPlainTextEdit::textChanged, this, &frmProduct::Changed);
  filters_->IsBusy = [this] { return Griglia->IsBusy(); };
  connect(filters_, &CardFilters::Edited, this, &frmProduct::Changed);
  connect(filters_, &CardFilters::ButtonClicked, this, &frmProduct::OpenFilter);
  connect(windows_, &CardWindows::ValuesChanged, this, &frmProduct::RenewFilter);
  connect(windows_, &CardWindows::FilterRenamed, this, &frmProduct::RenameFilter);
  connect(pictures_, &CardPictures::Changed, this,
          [this](bool hasMain) { Command(u"cmdImageView"_qs)->setEnabled(hasMain); });
  connect(ui_->fmePicture, &WidgetCardPicture::Clicked, this, [this] { Run(u"cmdImage"_qs); });
}

QAction* frmProduct::Command(const QString& key) const { return findChild<QAction*>(key); }

void frmProduct::Localize_Form() {
  ui_->retranslateUi(this);
  LocalizeCommands(*this, CardToolbar);
  LocalizeCommands(*this, CardWays);
  LocalizeCommands(*findChild<QMenu*>(u"mnuImage"_qs), ImageMenu);
}

void frmProduct::LoadForm(int state, qint64 product) {
  auto card = std::make_unique<ProductCard>(IDCatalogo, *Connessione, [this] {
    QMetaObject::invokeMethod(
        this, [this] { TellFaultyExtensions(this); }, Qt::QueuedConnection);
  });
  card->ReadNames();
  // All that can fail comes before what is shown changes.
  const ProductValues values = state == Edit ? card->Read(product) : ProductValues();
  const QString code = state == New ? card->ProposeCode() : QString();
  HasChanged();
  card_.swap(card);
  filters_->SetCard(*card_);
  pictures_->SetCard(card_.get(), IDCatalogo, Connessione);
  NumeroFiltri = card_->Names().NumeroFiltri;
  FiltroRicerca.clear();
  Localize_Form();
  ShowNames();
  Command(u"cmdImage"_qs)->setEnabled(true);
  filters_->EnableButtons(state != Search);
  if (state == Edit) {
    ShowProduct(values);
    ForgetTyping();
  }
  Begin(state, code);
}

void frmProduct::Open() {
  const bool isSearch = Stato == Search;
  setWindowModality(isSearch ? Qt::WindowModal : Qt::NonModal);
  ui_->fmePicture->setVisible(!isSearch);
  if (!isVisible()) {
    if (Stato == Edit)
      ui_->txtDescription->setFocus();
    else
      ui_->txtCode->setFocus();
  }
  show();
  raise();
  activateWindow();
}

qint64 frmProduct::Product() const { return card_ != nullptr ? card_->Product() : 0; }

void frmProduct::ShowNames() {
  const std::array<QLabel*, 3> labels{ui_->lblFields_0, ui_->lblFields_1, ui_->lblFields_2};
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const NamedField& field = card_->Names().values[i];
    const QString name = UnescapeName(field.name);
    labels[i]->setTextFormat(Qt::PlainText);
    labels[i]->setText(name);
    values_[i]->setAccessibleName(name);
    labels[i]->setVisible(field.inUse);
    values_[i]->setVisible(field.inUse);
  }
  ui_->txtCode->setAccessibleName(ui_->lblCode->text());
  ui_->txtDescription->setAccessibleName(ui_->lblDescription->text());
}

void frmProduct::ShowProduct(const ProductValues& values) {
  ShowValues(values);
  card_->Shown(Typed());
}

void frmProduct::ShowValues(const ProductValues& values) {
  const QScopedValueRollback<bool> loading(loading_, true);
  SetText(*ui_->txtCode, NullToEmpty(values.value(CodeField)));
  const QString description = NullToEmpty(values.value(DescriptionField));
  if (TextIn(*ui_->txtDescription) != description) ui_->txtDescription->setPlainText(description);
  for (std::size_t i = 0; i < values_.size(); ++i)
    SetText(*values_[i], NullToEmpty(values.value(ValueField(i))));
  filters_->Show(values);
}

// To undo would bring what was typed for another product, also where both hold the same text.
void frmProduct::ForgetTyping() {
  for (QLineEdit* line : ui_->centralWidget->findChildren<QLineEdit*>()) {
    line->setText(line->text());
    line->setCursorPosition(0);
  }
  ui_->txtDescription->document()->clearUndoRedoStacks();
}

ProductValues frmProduct::Typed() {
  ProductValues values = filters_->Typed();
  values[CodeField] = ui_->txtCode->text();
  values[DescriptionField] = TextIn(*ui_->txtDescription);
  for (std::size_t i = 0; i < values_.size(); ++i)
    if (card_->Names().values[i].inUse) values[ValueField(i)] = values_[i]->text();
  return values;
}

void frmProduct::SetState(int state) { Begin(state, state == New ? card_->ProposeCode() : QString()); }

void frmProduct::Begin(int state, const QString& code) {
  if (state != Edit) {
    card_->BeginNew();
    ShowValues({{CodeField, code}});
    ForgetTyping();
  }
  SetControls(state);
  if (state == New) {
    ui_->txtCode->selectAll();
    ui_->txtCode->setFocus();
  }
  Salvato = state != New;
  Stato = state;
}

void frmProduct::SetControls(int state) {
  const auto enable = [this](const QString& key, bool enabled) { Command(key)->setEnabled(enabled); };
  enable(u"cmdNew"_qs, state == Edit);
  enable(u"cmdSave"_qs, state != Search);
  enable(u"cmdDelete"_qs, state != Search);
  enable(u"cmdTechData"_qs, state == Edit);
  enable(u"cmdFind"_qs, state == Search);
  if (state == Search) enable(u"cmdImage"_qs, false);
  enable(u"cmdImageChange"_qs, state == Edit);
  enable(u"cmdPrevious"_qs, state == Edit);
  enable(u"cmdNext"_qs, state == Edit);
  ui_->txtCode->setEnabled(state != Edit);
  const QString mask = state == Search ? Texts::tr("Inizia con...") : QString();
  for (QLineEdit* box : {ui_->txtCode, values_[0], values_[1], values_[2]}) box->setPlaceholderText(mask);
  ui_->txtDescription->setPlaceholderText(mask);
  enable(u"cmdImageView"_qs, pictures_->Show() && state == Edit);
}

// The code of a product is read, though it cannot be changed.
void frmProduct::ShowCodePlainly() {
  QPalette plain = palette();
  plain.setColor(QPalette::Disabled, QPalette::Text, plain.color(QPalette::Active, QPalette::Text));
  ui_->txtCode->setPalette(plain);
}

void frmProduct::Changed() {
  if (!loading_ && Stato != Search) Salvato = false;
}

// An unknown text in the box of a filter comes before whatever was asked for, but for what may give it up
// with the rest.
void frmProduct::Run(const QString& key) {
  if (Griglia->IsBusy()) return;
  const bool leaves = key == u"cmdNew" || key == u"cmdPrevious" || key == u"cmdNext";
  if (!leaves && key != u"cmdDelete" && !filters_->Settle()) return;
  if (key == u"cmdNew") {
    if (Leave()) Try([this] { SetState(New); });
  } else if (key == u"cmdSave") {
    Salva();
  } else if (key == u"cmdDelete") {
    Elimina();
  } else if (key == u"cmdImage" || key == u"cmdImageView") {
    ApriImmagini();
  } else if (key == u"cmdImageChange") {
    Try([this] { pictures_->ChangeAndOpen(); });
  } else if (key == u"cmdTechData") {
    ApriScheda();
  } else if (key == u"cmdFind") {
    Cerca();
  } else if (key == u"cmdPrevious" || key == u"cmdNext") {
    GoToNeighbour(key == u"cmdNext");
  }
}

void frmProduct::Try(const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

void frmProduct::Salva() {
  if (Stato == Search || !filters_->Settle()) return;
  Try([this] {
    const ProductValues typed = Typed();
    const QString refusal = card_->Refusal(typed);
    if (!refusal.isEmpty()) return TheDialogs().Message(this, refusal, BoxStyle::Stop);
    Save(typed);
  });
}

void frmProduct::Save(const ProductValues& typed) {
  QStringList writtenOver;
  try {
    if (Stato == New)
      card_->Add(typed);
    else
      writtenOver = card_->Change(typed);
  } catch (const ConflictError& gone) {
    return SaveAsNew(gone.Description());
  }
  if (!writtenOver.isEmpty()) return SaveOver(writtenOver, typed);
  SetState(Edit);
  ShowProduct(card_->Read(card_->Product()));
}

void frmProduct::SaveOver(const QStringList& columns, const ProductValues& typed) {
  const QString text = Texts::tr(
      "Nel frattempo il prodotto è stato modificato da un'altra finestra o da un altro programma: %1.\r\n"
      "Sostituire quei valori con ciò che è scritto qui?");
  if (!TheDialogs().Ask(this, text.arg(columns.join(u", "_qs)), BoxStyle::QuestionNoFirst)) return;
  card_->WriteOver();
  Save(typed);
}

// What was typed is lost neither way: the card stays.
void frmProduct::SaveAsNew(const QString& why) {
  Salvato = false;
  if (!TheDialogs().Ask(this, why + u' ' + Texts::tr("Salvare ciò che è scritto qui come nuovo prodotto?")))
    return;
  if (!CloseOwned()) return;
  card_->BeginNew();
  SetControls(New);
  Stato = New;
  Salva();
}

void frmProduct::Elimina() {
  if (Stato == New)
    return TheDialogs().Message(
        this, Texts::tr("Il prodotto non è ancora stato salvato: non c'è nulla da eliminare."),
        BoxStyle::Information);
  if (!TheDialogs().Ask(this, NumberedText(BaseConferma + 3)) || !CloseOwned()) return;
  Try([this] {
    {
      const WaitCursor wait;
      card_->Products().Delete({card_->Product()});
    }
    ShowValues({});
    Salvato = true;
    close();
  });
}

void frmProduct::ApriImmagini() {
  if (Stato == Edit) Try([this] { pictures_->Open(); });
}

void frmProduct::ApriScheda() {
  Try([this] {
    if (!card_->HasTechData()) {
      if (!TheDialogs().Ask(this, NumberedText(BaseConferma + 2))) return;
      card_->BeginTechData();
    }
    windows_->OpenTechData({IDCatalogo, card_->Code()}, *Connessione);
  });
}

void frmProduct::OpenFilter(int filter) {
  if (Griglia->IsBusy() || !filters_->Settle()) return;
  const NamedField& field = card_->Names().filters[std::size_t(filter) - 1];
  Try([&] { windows_->OpenFilter(IDCatalogo, filter, UnescapeName(field.name), *Connessione); });
}

// What the product holds of it was stored with the values.
void frmProduct::RenewFilter(int filter) {
  const QScopedValueRollback<bool> loading(loading_, true);
  Try([&] { filters_->Renew(filter); });
}

void frmProduct::RenameFilter(int filter, const QString& name) {
  filters_->Rename(filter, name);
  Try([this] { card_->ReadNames(); });
}

void frmProduct::Cerca() {
  Try([this] {
    FiltroRicerca = SearchCondition(Typed());
    Griglia->Search(FiltroRicerca);
    close();
  });
}

void frmProduct::GoToNeighbour(bool next) {
  if (!Leave()) return;
  Try([this, next] {
    const qint64 product = Griglia->Neighbour(card_->Product(), next);
    if (product == 0) return QApplication::beep();
    LoadForm(Edit, product);
  });
}

bool frmProduct::Leave() {
  if (pictures_->IsBusy() || Griglia->IsBusy() || !CloseOwned()) return false;
  if (Stato == Search || Salvato) return true;
  const Dialogs::Answer answer = TheDialogs().AskToSave(this, NumberedText(BaseConferma + 4));
  if (answer == Dialogs::Answer::Yes) Salva();
  return Salvato || answer == Dialogs::Answer::No;
}

// The windows that it has opened for the product; one may have to stay.
bool frmProduct::CloseOwned() {
  for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    const bool isOwned = child->isWindow() && child->isVisible() && child->windowType() != Qt::Popup;
    if (isOwned && !child->close()) return false;
  }
  return true;
}

bool frmProduct::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && isVisible() && HasChanged()) LookAgain();
  if (event->type() == QEvent::WindowUnblocked) pictures_->TakeHeld();
  if (event->type() == QEvent::PaletteChange) ShowCodePlainly();
  return QMainWindow::event(event);
}

// Whether anybody has written since that was last asked.
bool frmProduct::HasChanged() {
  try {
    const LockPatience none(0);
    const qint64 mark = Connessione->ChangeMark();
    return mark != std::exchange(seen_, mark);
  } catch (const Error& error) {
    qCDebug(products) << "no mark" << error.Description();
    return true;
  }
}

void frmProduct::LookAgain() {
  filters_->Forget();
  TakeNames();
  if (Stato == Edit) Command(u"cmdImageView"_qs)->setEnabled(pictures_->Show());
}

// What is typed stays, but in the box of a filter that is gone.
void frmProduct::TakeNames() {
  try {
    const LockPatience none(0);
    const ProductGridFields former = card_->Names();
    card_->ReadNames();
    if (former == card_->Names()) return;
    filters_->SetCard(*card_);
    NumeroFiltri = card_->Names().NumeroFiltri;
    ShowNames();
    if (Stato == Edit && Salvato) ShowProduct(card_->Read(Product()));
  } catch (const Error& error) {
    qCDebug(products) << "names not read" << error.Description();
  }
}

// Enter in the description: the key that opened the card may still be held, and in a mask it searches as in
// the other boxes.
bool frmProduct::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(watched, event);
  auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
  if (Stato == Search) keyPressEvent(&key);
  return Stato == Search || key.isAutoRepeat();
}

void frmProduct::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Held, it would answer what the first one has asked, and close what lies below.
  if (event->key() == Qt::Key_Escape && event->isAutoRepeat()) return;
  if (event->key() == Qt::Key_Escape)
    close();
  else if (isEnter && Stato == Search && !event->isAutoRepeat())
    Run(u"cmdFind"_qs);
  else
    QMainWindow::keyPressEvent(event);
}

void frmProduct::closeEvent(QCloseEvent* event) {
  if (!Leave()) {
    activateWindow();
    return event->ignore();
  }
  StorePlace(*this, PlaceName);
  filters_->Forget();
  event->accept();
  Griglia->CardClosed(Product(), Stato == Search && FiltroRicerca.isEmpty());
}

void frmProduct::dragEnterEvent(QDragEnterEvent* event) {
  if (Stato != Edit || Griglia->IsBusy() || PicturesIn(event->mimeData()).isEmpty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void frmProduct::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  pictures_->Drop(PicturesIn(event->mimeData()));
}

}  // namespace vorlina
