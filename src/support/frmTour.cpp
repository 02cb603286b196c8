#include "support/frmTour.h"

#include <QShortcut>

#include "base/Texts.h"
#include "base/WidgetHeldKeys.h"
#include "base/WidgetPlace.h"
#include "support/Language.h"
#include "ui_frmTour.h"

namespace vorlina {

frmTour::frmTour(QWidget* parent) : QDialog(parent), ui_(new Ui::frmTour) {
  ui_->setupUi(this);
  WidgetTour& tour = *ui_->Tour;
  connect(&tour, &WidgetTour::Changed, this, &frmTour::ShowScene);
  connect(ui_->cmdPrevious, &QPushButton::clicked, &tour, [&tour] { tour.GoTo(tour.Current() - 1); });
  connect(ui_->cmdNext, &QPushButton::clicked, &tour, [&tour] { tour.GoTo(tour.Current() + 1); });
  connect(ui_->cmdPause, &QPushButton::clicked, &tour, [&tour] { tour.SetPlaying(!tour.IsPlaying()); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  // In a row of buttons the arrows would go from one to the other.
  const std::pair<Qt::Key, QPushButton*> keys[] = {{Qt::Key_Left, ui_->cmdPrevious},
                                                   {Qt::Key_Right, ui_->cmdNext}};
  for (const auto& [key, button] : keys)
    connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
  // The first start shows it behind a splash that a key closes.
  IgnoreHeldKeys(*this);
}

frmTour::~frmTour() = default;

void frmTour::LoadForm(const QString& film) {
  FitIntoScreen(*this);
  ui_->Tour->SetFilm(ReadTour(film, Language));
  ui_->Tour->SetPlaying(ui_->Tour->MayMove());
  (ui_->Tour->Count() > 0 ? ui_->cmdPause : ui_->cmdClose)->setFocus();
  ShowScene();
}

void frmTour::ShowScene() {
  const WidgetTour& tour = *ui_->Tour;
  const bool any = tour.Count() > 0;
  ui_->lblCaption->setText(tour.Caption());
  ui_->lblScene->setText(any ? u"%1/%2"_qs.arg(tour.Current() + 1).arg(tour.Count()) : QString());
  ui_->cmdPause->setText(tour.IsPlaying() ? Texts::tr("&Pausa") : Texts::tr("A&vvia"));
  ui_->cmdPause->setEnabled(any);
  // A button that has the focus keeps it at the ends.
  ui_->cmdPrevious->setEnabled(tour.Current() > 0 || ui_->cmdPrevious->hasFocus());
  ui_->cmdNext->setEnabled(tour.Current() + 1 < tour.Count() || (any && ui_->cmdNext->hasFocus()));
}

}  // namespace vorlina
