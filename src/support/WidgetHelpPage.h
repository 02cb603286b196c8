// A page of the help on the screen, in the desktop's colours, with its pictures as wide as there is room for.
#pragma once

#include <QTextBrowser>
#include <QTimer>
#include <functional>
#include <vector>

#include "support/HelpSearch.h"

namespace vorlina {

class WidgetHelpPage : public QTextBrowser {
  Q_OBJECT

 public:
  explicit WidgetHelpPage(QWidget* parent = nullptr);

  // Gives what a page names: its text, its style and its pictures.
  std::function<QByteArray(const QUrl&)> Content;

  // Marks the words wherever they stand, from now on also in the pages that follow; none ends it.
  void Mark(std::vector<TextNeedle> words);
  // How many places are marked on this page.
  int MarkedCount() const { return int(marked_.size()); }
  // Goes to the next marked place, or back to the one before, and over the page's end to its beginning.
  void Step(int by);

  // Steps of letters larger than usual; negative ones are smaller.
  int Zoom() const { return zoom_; }
  void SetZoom(int zoom);

  QVariant loadResource(int type, const QUrl& name) override;

 Q_SIGNALS:
  // A link leads out of the help.
  void LeadsOutside(const QUrl& url);
  void ZoomWanted(int by);

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Follow(const QUrl& link);
  void ApplyColours();
  void ShowAnew();
  void FindMarks();
  void ShowMarks();
  QVariant Picture(const QUrl& url);
  int PictureWidth() const;

  QTimer atRest_;  // pictures fit into the width once it has stayed
  std::vector<TextNeedle> words_;
  std::vector<TextNeedle::Piece> marked_;
  int current_ = -1;
  int zoom_ = 0;
  int shownWidth_ = 0;  // that the pictures were made for; 0 where the page has none
};

}  // namespace vorlina
