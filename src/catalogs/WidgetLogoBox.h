// The box that shows the path of a catalog's logo. The path is chosen, not typed, and can be taken back; the
// logo shows in a preview, one at a time.
#pragma once

#include <QLineEdit>
#include <QPointer>

namespace vorlina {

class frmImage;

class WidgetLogoBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit WidgetLogoBox(QWidget* parent = nullptr);

  // Offers the preview by a sign in the box, Enter and a double click.
  void OfferPreview();
  void Localize();

  // Asks for a picture; "" where none was chosen.
  QString AskForFile();
  void ShowPreview(const QString& path);
  void ClosePreview();

 Q_SIGNALS:
  // The logo is to be none, by the box's sign, Delete or Backspace.
  void ClearWanted();
  void PreviewWanted();

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  QAction* AddSign(const QString& name, const QIcon& icon, const QList<QKeySequence>& keys);

  QPointer<frmImage> preview_;
};

}  // namespace vorlina
