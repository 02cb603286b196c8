#include "support/frmHelp.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QHelpContentModel>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QLoggingCategory>
#include <QTabBar>
#include <QWindow>

#include "base/CommandIcon.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "base/WidgetPlace.h"
#include "support/HelpCommands.h"
#include "support/HelpFiles.h"
#include "support/WidgetHelpCollection.h"
#include "ui_frmHelp.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(support, "vorlina.support", QtInfoMsg)

const QString PlaceName = QStringLiteral("frmHelp");
const QString Section = QStringLiteral("Riservati");
const QString ZoomKey = QStringLiteral("frmHelpZoom");
constexpr int UrlRole = Qt::UserRole;
constexpr int PaneWidth = 280;

QTreeWidgetItem* AddPage(QTreeWidgetItem* parent, const QString& title, const QUrl& url) {
  auto* item = new QTreeWidgetItem(parent, {title});
  item->setData(0, UrlRole, url);
  return item;
}

// The entry of the contents that leads to a page; of those that do the innermost, as a section leads to its
// first one.
QModelIndex EntryOf(const QHelpContentModel& contents, const QUrl& page, const QModelIndex& below = {}) {
  for (int row = 0; row < contents.rowCount(below); ++row) {
    const QModelIndex entry = contents.index(row, 0, below);
    if (const QModelIndex inner = EntryOf(contents, page, entry); inner.isValid()) return inner;
    if (contents.contentItemAt(entry)->url().matches(page, QUrl::RemoveFragment)) return entry;
  }
  return {};
}

}  // namespace

frmHelp::frmHelp() : ui_(new Ui::frmHelp) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  MakeToolbar();
  MakeFindBar();
  ConnectPanes();
  ui_->txtPage->Content = [this](const QUrl& url) { return collection_->Content(url); };
  connect(ui_->txtPage, &WidgetHelpPage::sourceChanged, this, &frmHelp::SelectInContents);
  connect(ui_->txtPage, &WidgetHelpPage::ZoomWanted, this, &frmHelp::Zoom);
  connect(ui_->txtPage, &WidgetHelpPage::LeadsOutside, this,
          [](const QUrl& url) { QDesktopServices::openUrl(url); });
}

// The page and the panes let go of the collections first.
frmHelp::~frmHelp() {
  ui_->lstContents->setModel(nullptr);
  ui_->txtPage->Content = nullptr;
}

void frmHelp::MakeToolbar() {
  const std::pair<const char16_t*, std::function<void()>> handlers[] = {
      {u"cmdBack", [this] { ui_->txtPage->backward(); }},
      {u"cmdForward", [this] { ui_->txtPage->forward(); }},
      {u"cmdHome", [this] { ShowHome(); }},
      {u"cmdFind", [this] { OpenFind(); }},
      {u"cmdSmaller", [this] { Zoom(-1); }},
      {u"cmdLarger", [this] { Zoom(1); }},
      {u"cmdLanguage", [this] { ShowOtherLanguage(); }},
  };
  std::map<QString, QAction*> actions;
  for (std::size_t i = 0; i < ViewerCommands.size(); ++i) {
    QAction* action = AddCommand(*ui_->tbr, ViewerCommands[i]);
    connect(action, &QAction::triggered, this, handlers[i].second);
    actions[action->objectName()] = action;
  }
  const auto follow = [&](const QString& key, auto signal) {
    actions[key]->setEnabled(false);
    connect(ui_->txtPage, signal, actions[key], &QAction::setEnabled);
  };
  follow(u"cmdBack"_qs, &QTextBrowser::backwardAvailable);
  follow(u"cmdForward"_qs, &QTextBrowser::forwardAvailable);
}

void frmHelp::MakeFindBar() {
  ui_->fmFind->hide();
  connect(ui_->txtFind, &QLineEdit::textChanged, this, &frmHelp::Find);
  connect(ui_->txtFind, &QLineEdit::returnPressed, this, [this] { Step(1); });
  connect(ui_->cmdFindNext, &QPushButton::clicked, this, [this] { Step(1); });
  connect(ui_->cmdFindPrevious, &QPushButton::clicked, this, [this] { Step(-1); });
  for (const auto& [keys, by] : {std::pair{QKeySequence(Qt::Key_F3), 1}, {Qt::SHIFT | Qt::Key_F3, -1}}) {
    auto* action = new QAction(this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, step = by] { Step(step); });
    addAction(action);
  }
}

void frmHelp::ConnectPanes() {
  ui_->splitter->setStretchFactor(1, 1);
  ui_->splitter->setSizes({PaneWidth, width() - PaneWidth});
  ui_->tabHelp->tabBar()->installEventFilter(this);
  connect(ui_->lstContents, &QTreeView::clicked, this, [this](const QModelIndex& entry) {
    Go(collection_->Engine().contentModel()->contentItemAt(entry)->url());
  });
  connect(ui_->lstContents, &QTreeView::activated, ui_->lstContents, &QTreeView::clicked);
  connect(ui_->txtIndex, &QLineEdit::textChanged, this, &frmHelp::FilterIndex);
  connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::FillSearch);
  for (const auto& [line, list] :
       {std::pair{ui_->txtIndex, ui_->lstIndex}, {ui_->txtSearch, ui_->lstSearch}}) {
    line->installEventFilter(this);
    connect(line, &QLineEdit::returnPressed, this, [this, from = list] { GoToItem(from->currentItem()); });
    connect(list, &QTreeWidget::itemClicked, this, &frmHelp::GoToItem);
    connect(list, &QTreeWidget::itemActivated, this, &frmHelp::GoToItem);
  }
}

frmHelp* frmHelp::Shown() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* viewer = qobject_cast<frmHelp*>(window); viewer != nullptr && viewer->isVisible())
      return viewer;
  return nullptr;
}

frmHelp& frmHelp::Open(const QString& file) {
  if (frmHelp* viewer = Shown()) {
    viewer->UseFile(file);
    return *viewer;
  }
  auto viewer = std::make_unique<frmHelp>();
  viewer->LoadForm();
  viewer->UseFile(file);
  return *viewer.release();  // it goes when it is closed
}

void frmHelp::LoadForm() {
  Localize_Form();
  FitIntoScreen(*this);
  RestorePlace(*this, PlaceName);
  ui_->txtPage->SetZoom(GetSetting(ApplicationTitle(), Section, ZoomKey, {}).toInt());
}

void frmHelp::Localize_Form() {
  ui_->retranslateUi(this);
  LocalizeCommands(*this, ViewerCommands);
}

void frmHelp::UseFile(const QString& file) {
  WidgetHelpCollection& collection = CollectionOf(file);
  const bool other = collection_ != &collection;
  collection_ = &collection;
  if (!other) return;
  ui_->lstContents->setModel(collection.Engine().contentModel());
  ui_->lstContents->expandAll();
  FillIndex();
  FillSearch();
  auto* language = findChild<QAction*>(u"cmdLanguage"_qs);
  language->setText(IsEnglishHelp(file) ? u"Italiano"_qs : u"English"_qs);
  language->setEnabled(!OtherHelpFile(file).isEmpty());
}

// Each is opened once. Its contents and its index come when they are read.
WidgetHelpCollection& frmHelp::CollectionOf(const QString& file) {
  std::unique_ptr<WidgetHelpCollection>& collection = collections_[file];
  if (collection == nullptr) {
    auto opened = std::make_unique<WidgetHelpCollection>(file);
    const QHelpEngine& engine = opened->Engine();
    connect(engine.contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
      ui_->lstContents->expandAll();
      SelectInContents();
    });
    connect(engine.indexModel(), &QHelpIndexModel::indexCreated, this, &frmHelp::FillIndex);
    collection = std::move(opened);
  }
  return *collection;
}

// What was marked on the page before is not what the next one is read for.
void frmHelp::Go(const QUrl& url) {
  if (!url.isValid()) return;
  if (ui_->fmFind->isHidden()) ui_->txtPage->Mark({});
  ui_->txtPage->setSource(url);
}

void frmHelp::ShowHome() { Go(collection_->Home()); }

void frmHelp::ShowFirstOf(const QStringList& identifiers) {
  for (const QString& identifier : identifiers)
    if (const std::optional<QUrl> page = collection_->PageOf(identifier)) {
      Go(*page);
      ui_->txtPage->setFocus();
      return;
    }
  ShowHome();
  ShowPane(Pane::Contents);
}

void frmHelp::ShowPage(const QString& name) {
  std::optional<QUrl> page = collection_->PageNamed(name.section(u'#', 0, 0).section(u'/', -1));
  if (!page) return ShowHome();
  if (name.contains(u'#')) page->setFragment(name.section(u'#', 1));
  Go(*page);
}

bool frmHelp::ShowKeyword(const QString& keyword) {
  const QList<QHelpLink> pages = collection_->PagesFor(keyword);
  if (!pages.isEmpty()) Go(pages.first().url);
  return !pages.isEmpty();
}

void frmHelp::ShowPane(Pane pane) {
  if (ui_->txtPage->source().isEmpty()) ShowHome();
  ui_->tabHelp->setCurrentIndex(int(pane));
  QWidget* const first[] = {ui_->lstContents, ui_->txtIndex, ui_->txtSearch};
  first[int(pane)]->setFocus();
}

// A word of one page leads there, one of several has them below it.
void frmHelp::FillIndex() {
  ui_->lstIndex->clear();
  QStringList words = collection_->Engine().indexModel()->stringList();
  words.removeAll(QString());
  words.sort(Qt::CaseInsensitive);
  for (const QString& word : words) {
    const QList<QHelpLink> pages = collection_->PagesFor(word);
    if (pages.isEmpty()) continue;
    QTreeWidgetItem* entry = AddPage(ui_->lstIndex->invisibleRootItem(), word, pages.first().url);
    if (pages.size() > 1)
      for (const QHelpLink& page : pages) AddPage(entry, page.title, page.url);
  }
  ui_->lstIndex->expandAll();
  FilterIndex();
}

void frmHelp::FilterIndex() {
  const TextNeedle typed(ui_->txtIndex->text());
  QTreeWidgetItem* first = nullptr;
  for (int row = 0; row < ui_->lstIndex->topLevelItemCount(); ++row) {
    QTreeWidgetItem* entry = ui_->lstIndex->topLevelItem(row);
    entry->setHidden(!typed.IsEmpty() && !typed.IsIn(entry->text(0)));
    if (first == nullptr && !entry->isHidden()) first = entry;
  }
  ui_->lstIndex->setCurrentItem(first);
}

void frmHelp::FillSearch() {
  const QString words = ui_->txtSearch->text();
  ui_->lstSearch->clear();
  if (!words.trimmed().isEmpty())
    for (const HelpHit& hit : collection_->Find(words)) {
      QTreeWidgetItem* item = AddPage(ui_->lstSearch->invisibleRootItem(), hit.title, hit.url);
      item->setData(0, Qt::ToolTipRole, PlainToolTip(hit.extract));
    }
  const int count = ui_->lstSearch->topLevelItemCount();
  ui_->lstSearch->setCurrentItem(ui_->lstSearch->topLevelItem(0));
  ui_->lblSearch->setText(words.trimmed().isEmpty() ? QString()
                          : count == 0              ? Texts::tr("Nessuna pagina trovata")
                          : count == 1              ? Texts::tr("%1 pagina trovata").arg(count)
                                                    : Texts::tr("%1 pagine trovate").arg(count));
}

// What was sought is marked on the page that was found by it.
void frmHelp::GoToItem(const QTreeWidgetItem* item) {
  if (item == nullptr) return;
  Go(item->data(0, UrlRole).toUrl());
  if (item->treeWidget() != ui_->lstSearch) return;
  ui_->txtPage->Mark(MarksFor(ui_->txtSearch->text(), ui_->txtPage->toPlainText()));
  ui_->txtPage->Step(1);
}

void frmHelp::SelectInContents() {
  const QHelpContentModel& contents = *collection_->Engine().contentModel();
  if (ui_->lstContents->model() != &contents) return;
  const QModelIndex entry = EntryOf(contents, ui_->txtPage->source());
  if (!entry.isValid()) return;
  ui_->lstContents->setCurrentIndex(entry);
  ui_->lstContents->scrollTo(entry);
}

void frmHelp::ShowOtherLanguage() {
  const QUrl page = ui_->txtPage->source();
  const QString anchor = page.hasFragment() ? u'#' + page.fragment() : QString();
  const QString other = OtherHelpFile(collection_->File());
  if (other.isEmpty()) return;
  UseFile(other);
  ShowPage(page.fileName() + anchor);
}

void frmHelp::OpenFind() {
  ui_->fmFind->show();
  ui_->txtFind->setFocus();
  ui_->txtFind->selectAll();
  Find();
}

void frmHelp::CloseFind() {
  ui_->fmFind->hide();
  ui_->txtPage->Mark({});
  ui_->txtPage->setFocus();
}

void frmHelp::Find() {
  ui_->txtPage->Mark({TextNeedle(ui_->txtFind->text())});
  const int count = ui_->txtPage->MarkedCount();
  ui_->lblFound->setText(ui_->txtFind->text().isEmpty() ? QString()
                         : count == 0                   ? Texts::tr("Non trovato")
                                                        : QString::number(count));
  ui_->txtPage->Step(1);
}

void frmHelp::Step(int by) {
  if (ui_->txtPage->MarkedCount() == 0 && ui_->fmFind->isHidden()) return OpenFind();
  ui_->txtPage->Step(by);
}

void frmHelp::Zoom(int by) { ui_->txtPage->SetZoom(ui_->txtPage->Zoom() + by); }

void frmHelp::ComeToFront(QWidget* owner) {
  winId();
  windowHandle()->setTransientParent(owner != nullptr ? owner->window()->windowHandle() : nullptr);
  BeUsable();
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
}

// A window that waits for an answer blocks all that are not its own, and the help on it would be of no use.
void frmHelp::BeUsable() {
  if (const QWidget* modal = QApplication::activeModalWidget();
      modal != nullptr && modal->windowHandle() != nullptr)
    windowHandle()->setTransientParent(modal->windowHandle());
}

bool frmHelp::event(QEvent* event) {
  // Qt is still at work on its list of windows then.
  if (event->type() == QEvent::WindowBlocked)
    QMetaObject::invokeMethod(this, &frmHelp::BeUsable, Qt::QueuedConnection);
  return QMainWindow::event(event);
}

// From the line that is typed into down to the list. Who chooses a pane by its letter or with the mouse wants
// to type into it.
bool frmHelp::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->tabHelp->tabBar()) {
    if (event->type() == QEvent::Shortcut || event->type() == QEvent::MouseButtonRelease)
      QMetaObject::invokeMethod(
          this, [this] { ShowPane(Pane(ui_->tabHelp->currentIndex())); }, Qt::QueuedConnection);
    return QMainWindow::eventFilter(watched, event);
  }
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
    QTreeWidget* list = watched == ui_->txtIndex ? ui_->lstIndex : ui_->lstSearch;
    list->setFocus();
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmHelp::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QMainWindow::keyPressEvent(event);
  if (ui_->fmFind->isVisible())
    CloseFind();
  else
    close();
}

void frmHelp::closeEvent(QCloseEvent* event) {
  StorePlace(*this, PlaceName);
  StoreZoom();
  event->accept();
}

// It closes all the same where that cannot be written.
void frmHelp::StoreZoom() const {
  try {
    SaveSetting(ApplicationTitle(), Section, ZoomKey, QString::number(ui_->txtPage->Zoom()));
  } catch (const std::exception& error) {
    qCDebug(support) << "zoom not stored" << DescriptionOf(error);
  }
}

}  // namespace vorlina
