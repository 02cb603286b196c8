#include "publish/frmHighlights.h"

#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>

#include "base/Dialogs.h"
#include "base/Texts.h"
#include "base/WidgetBoxOutline.h"
#include "base/WidgetHeldKeys.h"
#include "base/WidgetPlace.h"
#include "ui_frmHighlights.h"

namespace vorlina {

frmHighlights::frmHighlights(QWidget* parent) : QDialog(parent), ui_(new Ui::frmHighlights) {
  ui_->setupUi(this);
  ui_->lstProducts->setModel(&products_);
  ui_->lstProducts->setItemDelegate(new WidgetBoxOutline(this));
  ui_->lstProducts->header()->setStretchLastSection(false);
  connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHighlights::Filter);
  connect(ui_->chkChosen, &QCheckBox::toggled, this, &frmHighlights::Filter);
  connect(&products_, &HighlightModel::ChosenChanged, this, &frmHighlights::ShowCount);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmHighlights::reject);
  // The mark itself is changed by each press on it.
  connect(ui_->lstProducts, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
    if (index.column() != HighlightModel::CodeColumn) products_.Toggle(index);
  });
  const auto on = [this](QWidget* control, Qt::Key key, const auto& step) {
    connect(new QShortcut(key, control, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            step);
  };
  on(ui_->lstProducts, Qt::Key_Space, [this] { products_.Toggle(ui_->lstProducts->currentIndex()); });
  // Enter in a search is not yet the end.
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter})
    on(ui_->txtSearch, key, [this] { GoToList(); });
  IgnoreHeldKeys(*this);
}

frmHighlights::~frmHighlights() = default;

void frmHighlights::LoadForm(std::vector<PublishedProduct> products, const QStringList& chosen) {
  ui_->retranslateUi(this);
  products_.SetProducts(std::move(products), chosen);
  before_ = products_.Chosen();
  FitIntoScreen(*this);
  FitColumns();
  ui_->chkChosen->setEnabled(products_.ChosenCount() > 0);
  ShowCount();
  ui_->txtSearch->setFocus();
}

// The description has what code and note leave.
void frmHighlights::FitColumns() {
  QTreeView& list = *ui_->lstProducts;
  QHeaderView& header = *list.header();
  header.setSectionResizeMode(HighlightModel::NameColumn, QHeaderView::Stretch);
  list.resizeColumnToContents(HighlightModel::CodeColumn);
  header.resizeSection(HighlightModel::CodeColumn,
                       std::min(header.sectionSize(HighlightModel::CodeColumn), width() / 4));
  const QFontMetrics metrics = list.fontMetrics();
  header.resizeSection(
      HighlightModel::NoteColumn,
      metrics.horizontalAdvance(HighlightModel::WithoutPictureNote()) + 4 * metrics.averageCharWidth());
}

void frmHighlights::Filter() {
  products_.Filter(ui_->txtSearch->text(), ui_->chkChosen->isChecked());
  ShowCount();
}

void frmHighlights::ShowCount() {
  QString text = Texts::tr("Scelti: %1.").arg(products_.ChosenCount());
  if (const qsizetype without = products_.WithoutPicture(); without > 0)
    text += u' ' + Texts::tr("Senza immagine: %1, che nella prima pagina non si vedono.").arg(without);
  if (products_.rowCount() == 0) {
    const bool isSearch = ui_->chkChosen->isChecked() || !ui_->txtSearch->text().isEmpty();
    text = (isSearch ? Texts::tr("Nessun prodotto trovato.") : Texts::tr("Nessun prodotto è pubblicato.")) +
           u' ' + text;
  }
  ui_->lblCount->setText(text);
  ui_->chkChosen->setEnabled(ui_->chkChosen->isChecked() || products_.ChosenCount() > 0);
}

// By Escape and the window's own end as well.
void frmHighlights::reject() {
  if (products_.Chosen() == before_) return QDialog::reject();
  const Dialogs::Answer answer = TheDialogs().AskToSave(
      this, Texts::tr("I prodotti in evidenza sono cambiati. Tenere la nuova scelta?"));
  if (answer == Dialogs::Answer::Yes) return accept();
  if (answer == Dialogs::Answer::No) QDialog::reject();
}

void frmHighlights::GoToList() {
  if (products_.rowCount() == 0) return;
  ui_->lstProducts->setFocus();
  if (!ui_->lstProducts->currentIndex().isValid()) ui_->lstProducts->setCurrentIndex(products_.index(0, 0));
}

}  // namespace vorlina
