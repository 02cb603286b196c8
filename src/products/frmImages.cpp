#include "products/frmImages.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QScopedValueRollback>

#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "images/ImagePipeline.h"
#include "products/ImagesToolbar.h"
#include "products/ProductImages.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/LockPatience.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmImages.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

const QString MainKey = QStringLiteral("Main");

QString KeyOf(qint64 image) { return u'I' + QString::number(image); }
qint64 NumberOf(const QString& key) { return key.mid(1).toLongLong(); }

QString ChooserTitle() { return Texts::tr("Seleziona un'immagine"); }
QString ChooserFilter() { return Texts::tr("Immagini (*.jpg,*.jpeg)|*.jpg;*.jpeg"); }

}  // namespace

frmImages::frmImages(QWidget* parent) : QMainWindow(parent), ui_(new Ui::frmImages) {
  ui_->setupUi(this);
  MakeToolbar();
  show_.setSingleShot(true);
  connect(&show_, &QTimer::timeout, this, &frmImages::ShowSelected);
  const WidgetImageList* list = ui_->lstImages;
  connect(list, &WidgetImageList::Picked, &show_, qOverload<>(&QTimer::start));
  connect(list, &WidgetImageList::Renamed, this, &frmImages::Rename);
  connect(list, &WidgetImageList::RenameEnded, this, &frmImages::Refresh);
  connect(list, &WidgetImageList::DeletePressed, this, [this] { Run([this] { Delete(); }); });
  // The program that the files come from waits for the end of the drop.
  const auto take = [this](const QStringList& files) {
    Run([&] {
      images_->Mark();
      AddFiles(files);
    });
  };
  connect(list, &WidgetImageList::FilesDropped, this, take, Qt::QueuedConnection);
}

frmImages::~frmImages() = default;

void frmImages::MakeToolbar() {
  void (frmImages::*const commands[])() = {&frmImages::Add, &frmImages::Delete, &frmImages::Change,
                                           &frmImages::Clear};
  for (std::size_t i = 0; i < ImagesToolbar.size(); ++i)
    connect(AddCommand(*ui_->tbr, ImagesToolbar[i]), &QAction::triggered, this,
            [this, command = commands[i]] { Run([&] { (this->*command)(); }); });
}

void frmImages::Localize_Form() {
  ui_->retranslateUi(this);
  LocalizeCommands(*this, ImagesToolbar);
}

void frmImages::LoadForm() {
  images_ = std::make_unique<ProductImages>(
      IDCatalogo, ProductStore(IDCatalogo, *Connessione).Find(CodiceProdotto), *Connessione);
  Fill();
  show_.stop();  // the preview shows the main image by itself
  if (Anteprima != nullptr) {
    Anteprima->ListaImmagini = this;
    Anteprima->MakeRoomForList();
  }
  Localize_Form();
  ui_->lstImages->setFocus();
}

// One command at a time, and what is being typed before any.
void frmImages::Run(const std::function<void()>& command) {
  if (busy_) return;
  {
    const QScopedValueRollback busy(busy_, true);
    try {
      ui_->lstImages->FinishRename();
      command();
    } catch (const std::exception& error) {
      ShowError(this, DescriptionOf(error));
    }
  }
  if (!mainRemoved_) return Refresh();
  const std::function<void()> tell = MainImageRemoved;
  close();
  if (tell) tell();
}

void frmImages::Fill() {
  if (ui_->lstImages->IsRenaming()) return;
  mark_ = Connessione->ChangeMark();
  const ProductImage main = images_->Main();
  FollowMain(main.Immagine);
  std::vector<WidgetImageList::Entry> entries{{MainKey, main.Descrizione, main.Immagine, true}};
  for (const ProductImage& image : images_->List())
    entries.push_back({KeyOf(image.IDImmagine), image.Descrizione, image.Immagine});
  ui_->lstImages->Show(entries);
}

// The file goes along where the product gets another code.
void frmImages::FollowMain(const QString& path) {
  if (path.isEmpty()) return;
  if (Anteprima != nullptr && !main_.isEmpty() && Anteprima->Percorso == main_) Anteprima->Percorso = path;
  main_ = path;
}

// What others have changed. Who only looks does not wait for a lock.
void frmImages::Refresh() {
  if (busy_ || images_ == nullptr) return;
  try {
    const LockPatience none(0);
    if (Connessione->ChangeMark() != mark_) Fill();
  } catch (const std::exception& error) {
    qCDebug(products) << "pictures not listed" << DescriptionOf(error);
  }
}

void frmImages::ShowSelected() {
  show_.stop();
  const QString key = ui_->lstImages->SelectedKey();
  if (Anteprima == nullptr || key.isEmpty()) return;
  Anteprima->ImageLoad(key == MainKey ? Anteprima->Percorso
                                      : NullToEmpty(GetValue(u"Immagine"_qs, u"Immagini"_qs, *Connessione,
                                                             u"IDImmagine=?"_qs, {NumberOf(key)})));
}

void frmImages::Rename(const QString& key, const QString& text) {
  try {
    images_->Describe(NumberOf(key), text);
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
  Refresh();
}

// The marks are set before a file is chosen, and stay where none is.
void frmImages::Add() {
  images_->Mark();
  AddFiles(OpenFilesFor(purpose::Pictures, this, ChooserTitle(), ChooserFilter()));
}

// Of several files each is asked about by its name, which is its description unless another one is typed, and
// the rest can be given up.
void frmImages::AddFiles(const QStringList& files) {
  const bool several = files.size() > 1;
  const auto ask = [&](const QString& file) {
    if (!several) return AskDescription(Texts::tr("Descrizione immagine"), {}, false);
    const QFileInfo name(file);
    return AskDescription(Texts::tr("Descrizione immagine per ") + name.fileName(), name.completeBaseName(),
                          true);
  };
  ProductImages::Added added;
  {
    const WaitCursor wait;
    added = images_->AddFiles(files, ask);
  }
  Fill();
  if (added.last != 0) {
    ui_->lstImages->Select(KeyOf(added.last));
    ShowSelected();
  }
  if (!added.failures.isEmpty()) ShowError(this, FirstLines(added.failures));
}

// An additional picture has a description. A null text gives it up, where that may be.
QString frmImages::AskDescription(const QString& prompt, const QString& initial, bool mayGiveUp) {
  for (;;) {
    QString text = TheDialogs().Input(this, prompt, Texts::tr("Aggiungi/Modifica image"), OneLine(initial));
    if (mayGiveUp && text.isNull()) return text;
    if (!text.trimmed().isEmpty()) return OneLine(text);
  }
}

// After the deletion of an additional picture the main one is selected: who goes on by Delete and Enter is
// not to lose that by a question that looks like the one before.
void frmImages::Delete() {
  const QString key = ui_->lstImages->SelectedKey();
  if (key.isEmpty()) return;
  const bool isMain = key == MainKey;
  if (!TheDialogs().Ask(this, NumberedText(BaseConferma + (isMain ? 9 : 10)),
                        isMain ? BoxStyle::QuestionNoFirst : BoxStyle::Question))
    return;
  if (isMain) {
    images_->DeleteMain();
    mainRemoved_ = true;
    return;
  }
  images_->Delete(NumberOf(key));
  Fill();
  ui_->lstImages->Select(MainKey);
  ShowSelected();
}

void frmImages::Change() {
  const QString key = ui_->lstImages->SelectedKey();
  if (key.isEmpty()) return;
  images_->Mark();
  if (key == MainKey)
    ChangeMain();
  else
    ChangeAdditional(NumberOf(key));
}

// After a change the path is empty: the preview shows the new picture when it is opened again.
void frmImages::ChangeMain() {
  if (!ImageChange) return;
  const QString path = ImageChange();
  if (Anteprima != nullptr) Anteprima->Percorso = path;
  ui_->lstImages->Renew(MainKey);
  ShowSelected();
}

void frmImages::ChangeAdditional(qint64 image) {
  const QString former = images_->Find(image).Descrizione;
  const QString file = OpenFileFor(purpose::Pictures, this, ChooserTitle(), ChooserFilter());
  if (file.isEmpty()) return;
  const WaitCursor wait;
  const PreparedPicture picture = PrepareAdditionalFile(file);
  images_->Change(image, file, picture, AskDescription(Texts::tr("Descrizione immagine"), former, false));
  ui_->lstImages->Renew(KeyOf(image));
  ShowSelected();
}

void frmImages::Clear() {
  if (!TheDialogs().Ask(this, NumberedText(BaseConferma + 11))) return;
  images_->DeleteAll();
  Fill();
  ShowSelected();
}

bool frmImages::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) Refresh();
  return QMainWindow::event(event);
}

void frmImages::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QMainWindow::keyPressEvent(event);
}

void frmImages::closeEvent(QCloseEvent* event) {
  if (busy_) return event->ignore();
  ui_->lstImages->FinishRename();
  if (Anteprima != nullptr) Anteprima->close();
  event->accept();
}

}  // namespace vorlina
