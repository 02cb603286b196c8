#include "support/WidgetHelpPage.h"

#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace vorlina {
namespace {

constexpr int MostZoom = 12;
constexpr int LeastZoom = -4;
constexpr int AtRest = 150;  // milliseconds
constexpr int DocumentMargin = 16;
// What lists and the like take from the width of a picture.
constexpr int Indent = 40;
// Pictures are taken for dense screens.
constexpr int PictureScale = 2;

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

// A dark desktop may leave its links in the blue of paper.
QColor LinkColour(const QPalette& palette) {
  const QColor link = palette.color(QPalette::Link);
  return IsDark(palette) && link.lightness() < 150 ? QColor(0x7a, 0xb8, 0xff) : link;
}

QColor MarkColour(const QPalette& palette, bool current) {
  const QColor colour = current ? QColor(0xf5, 0x9e, 0x0b) : QColor(0xfd, 0xe0, 0x68);
  return IsDark(palette) ? colour.darker(current ? 180 : 280) : colour;
}

}  // namespace

WidgetHelpPage::WidgetHelpPage(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  document()->setDocumentMargin(DocumentMargin);
  atRest_.setSingleShot(true);
  atRest_.setInterval(AtRest);
  connect(&atRest_, &QTimer::timeout, this, [this] {
    if (shownWidth_ != 0 && shownWidth_ != PictureWidth()) ShowAnew();
  });
  connect(this, &QTextBrowser::anchorClicked, this, &WidgetHelpPage::Follow);
  connect(this, &QTextBrowser::sourceChanged, this, &WidgetHelpPage::FindMarks);
  ApplyColours();
}

void WidgetHelpPage::Follow(const QUrl& link) {
  if (link.scheme() == u"qthelp")
    setSource(link);
  else if (QStringList{u"http"_qs, u"https"_qs, u"mailto"_qs}.contains(link.scheme()))
    Q_EMIT LeadsOutside(link);
}

// The viewer's own, so that a page needs none; those of a page come behind it.
void WidgetHelpPage::ApplyColours() {
  document()->setDefaultStyleSheet(
      u"a { color: %1; } table { border-collapse: collapse; border-color: %2; border-style: solid; }"_qs.arg(
          LinkColour(palette()).name(), palette().color(QPalette::Mid).name()));
}

// The place in the text stays, whatever becomes of the pictures above it.
void WidgetHelpPage::ShowAnew() {
  if (source().isEmpty()) return;
  const int position = cursorForPosition(QPoint(1, 1)).position();
  reload();
  QTextCursor place(document());
  place.setPosition(std::min(position, document()->characterCount() - 1));
  if (position > 0) verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(place).top());
}

QVariant WidgetHelpPage::loadResource(int type, const QUrl& name) {
  const QUrl url = source().resolved(name);
  if (!Content || url.scheme() != u"qthelp") return {};  // nothing comes from elsewhere
  if (type == QTextDocument::HtmlResource) {
    shownWidth_ = 0;
    return QString::fromUtf8(Content(name));
  }
  if (type == QTextDocument::ImageResource) return Picture(url);
  return Content(url);
}

int WidgetHelpPage::PictureWidth() const {
  return std::max(100, viewport()->width() - 2 * DocumentMargin - Indent);
}

// With a thin frame: a window's picture would have no edge on a ground of its own colour.
QVariant WidgetHelpPage::Picture(const QUrl& url) {
  QImage image = QImage::fromData(Content(url), "png");
  if (image.isNull()) return {};
  shownWidth_ = PictureWidth();
  const double scale = devicePixelRatioF();
  const int width = int(std::min(shownWidth_, image.width() / PictureScale) * scale);
  image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
              .scaledToWidth(width, Qt::SmoothTransformation);
  {
    QPainter painter(&image);
    painter.setPen(QPen(palette().color(QPalette::Mid), scale));
    painter.drawRect(image.rect().adjusted(0, 0, -1, -1));
  }
  image.setDevicePixelRatio(scale);
  return image;
}

void WidgetHelpPage::Mark(std::vector<TextNeedle> words) {
  words_ = std::move(words);
  FindMarks();
}

void WidgetHelpPage::FindMarks() {
  marked_.clear();
  current_ = -1;
  const QString text = document()->toPlainText();
  for (const TextNeedle& word : words_)
    for (const TextNeedle::Piece& piece : word.PiecesIn(text)) marked_.push_back(piece);
  std::sort(marked_.begin(), marked_.end(), [](const auto& a, const auto& b) { return a.start < b.start; });
  ShowMarks();
}

void WidgetHelpPage::ShowMarks() {
  QList<ExtraSelection> selections;
  for (int i = 0; i < MarkedCount(); ++i) {
    const TextNeedle::Piece& piece = marked_[std::size_t(i)];
    ExtraSelection selection{QTextCursor(document()), {}};
    selection.cursor.setPosition(int(piece.start));
    selection.cursor.setPosition(int(piece.start + piece.length), QTextCursor::KeepAnchor);
    selection.format.setBackground(MarkColour(palette(), i == current_));
    selections += selection;
  }
  setExtraSelections(selections);
}

void WidgetHelpPage::Step(int by) {
  if (marked_.empty()) return;
  const int count = MarkedCount();
  current_ = current_ < 0 ? (by > 0 ? 0 : count - 1) : (current_ + by + count) % count;
  QTextCursor place(document());
  place.setPosition(int(marked_[std::size_t(current_)].start));
  setTextCursor(place);
  ShowMarks();
}

void WidgetHelpPage::SetZoom(int zoom) {
  zoom = std::clamp(zoom, LeastZoom, MostZoom);
  zoomIn(zoom - zoom_);
  zoom_ = zoom;
}

// Colours are read as the page is.
void WidgetHelpPage::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  ApplyColours();
  ShowAnew();
}

void WidgetHelpPage::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  atRest_.start();
}

void WidgetHelpPage::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(event);
  if (event->angleDelta().y() != 0) Q_EMIT ZoomWanted(event->angleDelta().y() > 0 ? 1 : -1);
  event->accept();
}

}  // namespace vorlina
