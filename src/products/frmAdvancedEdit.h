// A feature and its value with room for long texts.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>

namespace vorlina {

namespace Ui {
class frmAdvancedEdit;
}

class frmAdvancedEdit : public QDialog {
  Q_OBJECT

 public:
  explicit frmAdvancedEdit(QWidget* parent = nullptr);
  ~frmAdvancedEdit() override;

  // Gets the texts when they are confirmed; one that was not touched is none. Where it cannot take them the
  // window stays, with what was typed: it has told why. It outlives the window.
  using Text = std::optional<QString>;
  std::function<bool(const Text& feature, const Text& value)> Take;

  // Shows the texts, modal to the parent, and goes with its end, which accepted and rejected tell.
  void EditFeature(const QString& feature, const QString& value);

  void accept() override;
  // By Escape or the window's frame: what was typed is asked about.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Localize_Form();

  std::unique_ptr<Ui::frmAdvancedEdit> ui_;
};

}  // namespace vorlina
