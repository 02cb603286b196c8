// The preview and the pager, worked as their users do.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "base/Settings.h"
#include "images/PictureFolder.h"
#include "images/frmImage.h"
#include "images/frmImageViewer.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

void WritePicture(const QString& path, QSize size, const QColor& colour) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  ASSERT_TRUE(image.save(path, "JPG"));
}

// "red" or "blue" in the middle of a box, or "none" where another colour is seen.
QString ColourOf(QWidget& box) {
  const QColor colour = box.grab().toImage().pixelColor(box.rect().center() * box.devicePixelRatioF());
  if (colour.green() > 60 || colour.red() + colour.blue() > 300) return u"none"_qs;
  return colour.red() > 200 ? u"red"_qs : colour.blue() > 200 ? u"blue"_qs : u"none"_qs;
}

template <class T>
T* Find(QWidget& window, const QString& name) {
  T* found = window.findChild<T*>(name);
  EXPECT_NE(found, nullptr) << name;
  return found;
}

void StorePosition(const QString& left, const QString& top) {
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"ImmagineLeft"_qs, left);
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"ImmagineTop"_qs, top);
}

class Preview : public StoreFixture {
 protected:
  Preview() { StorePosition(u"20"_qs, u"30"_qs); }

  QString Picture(const QString& name, QSize size = {400, 200}) const {
    WritePicture(AppFile(name), size, Qt::red);
    return AppFile(name);
  }
  QWidget* Box() { return Find<QWidget>(window_, u"Picture1"_qs); }

  ScriptedDialogs dialogs_;
  frmImage window_;
};

class Pager : public StoreFixture {
 protected:
  Pager() {
    catalog_ = AddCatalog(u"a"_qs);
    UnexpectedModalGuard::allowed = QStringList{u"frmImageViewer"_qs};
  }
  ~Pager() override { UnexpectedModalGuard::allowed.clear(); }

  // Products P00, P01 and so on; the first one stands last by OrdineTemp.
  void AddProducts(int count) {
    for (int i = 0; i < count; ++i) AddProduct(catalog_, u"P%1"_qs.arg(i, 2, 10, QChar(u'0')), count - i);
  }
  void SetColumn(const QString& code, const QString& column, const QString& value) {
    connection_.Execute(u"UPDATE Prodotti SET "_qs + column + u"=? WHERE CodiceProdotto=?"_qs, {value, code});
  }

  // Shows the pager; the steps are taken when it is open, and it is closed after them.
  QString Show(const std::function<void()>& steps, const QString& extra = u"ORDER BY CodiceProdotto"_qs,
               const QVariantList& values = {}) {
    pager_ = std::make_unique<frmImageViewer>();
    pager_->IDCatalogo = catalog_;
    pager_->Connection = &connection_;
    shown_ = false;
    QTimer::singleShot(0, pager_.get(), [&] {
      shown_ = true;
      steps();
      pager_->reject();
    });
    return pager_->ShowCatalog(extra, values);
  }

  QWidget* Tile(int i) { return Find<QWidget>(*pager_, u"intPicture_%1"_qs.arg(i)); }
  QWidget* Frame(int i) { return Find<QWidget>(*pager_, u"extPicture_%1"_qs.arg(i)); }
  void Click(const QString& button) {
    QTest::mouseClick(Find<QAbstractButton>(*pager_, button), Qt::LeftButton);
  }
  // Goes to the focused control, as a key does.
  void Key(Qt::Key key) {
    QWidget* focus = pager_->focusWidget();
    QTest::keyClick(focus != nullptr ? focus : pager_.get(), key);
  }
  void DoubleClick(int tile) { QTest::mouseDClick(Tile(tile), Qt::LeftButton); }

  // The codes on the tiles as their tooltips tell them, and what the pager says of the page.
  QString Page() {
    QStringList codes;
    for (int i = 0; i < 9; ++i) {
      EXPECT_EQ(Tile(i)->toolTip(), Frame(i)->toolTip());
      codes += Tile(i)->toolTip().section(u' ', 1, 1);
    }
    QString buttons;
    for (const QString& name : {u"cmdFirst"_qs, u"cmdBack"_qs, u"cmdForward"_qs, u"cmdLast"_qs}) {
      const auto* button = Find<QAbstractButton>(*pager_, name);
      buttons += button->isEnabled() ? button->text() : u"-"_qs;
    }
    return codes.join(u',') + u' ' + Find<QLabel>(*pager_, u"lblPages"_qs)->text() + u' ' + buttons;
  }

  int catalog_ = 0;
  bool shown_ = false;
  ScriptedDialogs dialogs_;
  std::unique_ptr<frmImageViewer> pager_;
};

}  // namespace

TEST_F(Preview, ShowsAPictureWholeInTheMiddleAndNothingForWhatIsNone) {
  window_.Percorso = Picture(u"wide.jpg"_qs);
  window_.LoadForm();
  window_.resize(500, 400);
  window_.show();
  EXPECT_EQ(Box()->geometry(), QRect(0, 75, 500, 250));
  EXPECT_EQ(ColourOf(*Box()), u"red"_qs);
  ASSERT_TRUE(QImage(10, 10, QImage::Format_RGB32).save(AppFile(u"png.jpg"_qs), "PNG"));
  WriteFileSafely(AppFile(u"cut.jpg"_qs), ContentOf(window_.Percorso).chopped(300));
  for (const QString& bad :
       {u""_qs, AppFile(u"gone.jpg"_qs), AppPath(), AppFile(u"png.jpg"_qs), AppFile(u"cut.jpg"_qs)}) {
    window_.ImageLoad(bad);
    EXPECT_FALSE(Box()->isVisible()) << bad;
    window_.ImageLoad(Picture(u"tall.jpg"_qs, {100, 200}));
    EXPECT_TRUE(Box()->isVisible()) << bad;
  }
  window_.resize(300, 200);
  EXPECT_EQ(Box()->geometry(), QRect(100, 0, 100, 200));
}

// Stripes too fine for the small window come out when it grows.
TEST_F(Preview, DecodesAgainWhenTheWindowGrows) {
  QImage stripes(1600, 1200, QImage::Format_RGB32);
  for (int x = 0; x < stripes.width(); ++x)
    for (int y = 0; y < stripes.height(); ++y) stripes.setPixel(x, y, x % 4 < 2 ? 0xff000000 : 0xffffffff);
  ASSERT_TRUE(stripes.save(AppFile(u"stripes.jpg"_qs), "JPG", 95));
  const auto contrast = [this] {
    const QImage seen = Box()->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    const uchar* line = seen.constScanLine(seen.height() / 2);
    const auto [darkest, lightest] = std::minmax_element(line + 20, line + seen.width() - 20);
    return *lightest - *darkest;
  };
  window_.Percorso = AppFile(u"stripes.jpg"_qs);
  window_.resize(200, 150);
  window_.LoadForm();
  window_.show();
  EXPECT_LT(contrast(), 60);
  window_.resize(1600, 1200);
  EXPECT_TRUE(QTest::qWaitFor([&] { return contrast() > 150; })) << contrast();
}

TEST_F(Preview, ComesBackToItsPlaceButNeverOutOfSight) {
  window_.LoadForm();
  window_.show();
  window_.move(44, 55);
  window_.close();
  frmImage next;
  next.LoadForm();
  EXPECT_EQ(next.pos(), QPoint(44, 55));
  StorePosition(u"nan"_qs, u"1e300"_qs);
  frmImage lost;
  lost.LoadForm();
  EXPECT_TRUE(lost.screen()->geometry().contains(lost.pos()));
}

TEST_F(Preview, PullsTheListAlongAndClosesWithIt) {
  auto card = std::make_unique<QWidget>();
  card->show();
  auto* list = new QWidget(&window_, Qt::Window);
  window_.ListaImmagini = list;
  window_.Card = card.get();
  window_.LoadForm();
  window_.show();
  list->show();
  const auto isDocked = [&] { return list->pos() == window_.frameGeometry().topRight() + QPoint(1, 0); };
  EXPECT_TRUE(QTest::qWaitFor(isDocked));
  window_.move(70, 80);
  EXPECT_TRUE(QTest::qWaitFor(isDocked));
  window_.resize(window_.width() + 60, window_.height());
  EXPECT_TRUE(QTest::qWaitFor(isDocked));
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible() || list->isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return card->isActiveWindow(); }));

  // It works on when both are gone.
  window_.show();
  delete list;
  card.reset();
  window_.move(90, 90);
  QTest::qWait(150);
  EXPECT_TRUE(window_.close());
}

TEST_F(Pager, PagesThroughTheProducts) {
  const QString nine = u"P00,P01,P02,P03,P04,P05,P06,P07,P08"_qs;
  AddProducts(9);
  Show([&] { EXPECT_EQ(Page(), nine + u" Page 1 of 1 <<-->>"_qs); });
  AddProduct(catalog_, u"P09"_qs);
  const QString first = nine + u" Page 1 of 2 <<->>>"_qs;
  const QString last = u"P09,,,,,,,, Page 2 of 2 <<<->>"_qs;
  Show([&] {
    EXPECT_EQ(Page(), first);
    const std::pair<std::function<void()>, QString> steps[] = {
        {[&] { Click(u"cmdForward"_qs); }, last}, {[&] { Click(u"cmdBack"_qs); }, first},
        {[&] { Key(Qt::Key_End); }, last},        {[&] { Key(Qt::Key_PageDown); }, last},
        {[&] { Key(Qt::Key_PageUp); }, first},    {[&] { Click(u"cmdLast"_qs); }, last},
        {[&] { Key(Qt::Key_Home); }, first}};
    for (const auto& [step, page] : steps) {
      step();
      EXPECT_EQ(Page(), page);
    }
  });
}

TEST_F(Pager, TheExtraTextChoosesAndOrdersWithItsValuesBound) {
  AddProducts(4);
  Show([&] { EXPECT_TRUE(Page().startsWith(u"P02,P01,,")) << Page(); },
       u"AND CodiceProdotto>? AND CodiceProdotto<? ORDER BY OrdineTemp"_qs, {u"P00' OR 1=1--"_qs, u"P03"_qs});
  EXPECT_TRUE(shown_);
  // A statement that fails shows nothing.
  EXPECT_EQ(Show([] {}, u"AND Nothing=1"_qs), QString());
  EXPECT_FALSE(shown_);
}

TEST_F(Pager, ShowsTheThumbnailElseTheMainImageElseNothing) {
  // Thumbnail, a broken one, main picture.
  const std::pair<QString, QString> cases[] = {{u"t-m"_qs, u"red"_qs},  {u"t--"_qs, u"red"_qs},
                                               {u"--m"_qs, u"blue"_qs}, {u"-bm"_qs, u"blue"_qs},
                                               {u"-b-"_qs, u"none"_qs}, {u"---"_qs, u"none"_qs}};
  AddProducts(7);
  for (int i = 0; i < 6; ++i) {
    const QString code = u"P0%1"_qs.arg(i);
    const QString main = MainImagePath(catalog_, code);
    SetColumn(code, u"Immagine"_qs, main);
    const QString files = cases[i].first;
    if (files[0] == u't') WritePicture(ThumbnailPath(main), {200, 50}, Qt::red);
    if (files[1] == u'b') WriteFileSafely(ThumbnailPath(main), "\xFF\xD8\xFF no picture");
    if (files[2] == u'm') WritePicture(main, {800, 600}, Qt::blue);
  }
  Show([&] {
    for (int i = 0; i < 6; ++i) EXPECT_EQ(ColourOf(*Tile(i)), cases[i].second) << cases[i].first;
    EXPECT_EQ(ColourOf(*Tile(6)), u"none"_qs);
    // The box takes the shape of its picture, inside the frame.
    EXPECT_NEAR(double(Tile(1)->width()) / Tile(1)->height(), 4, 0.1);
    EXPECT_GT(Frame(1)->height(), 2 * Tile(1)->height());
    // A place larger than the thumbnail gets the main image, once the window is at rest.
    pager_->resize(pager_->size() * 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ColourOf(*Tile(0)) == u"blue"_qs; }));
    EXPECT_EQ(ColourOf(*Tile(1)), u"red"_qs);
  });
}

TEST_F(Pager, GivesTheCodeThatWasChosenAndOnlyThen) {
  AddProducts(13);
  const auto keys = [this](const QList<Qt::Key>& list) {
    return [this, list] {
      for (const Qt::Key key : list) Key(key);
    };
  };
  const auto onLastPage = [this](int tile) {
    return [this, tile] {
      Click(u"cmdLast"_qs);
      DoubleClick(tile);
    };
  };
  const std::pair<std::function<void()>, QString> cases[] = {
      {[&] { DoubleClick(4); }, u"P04"_qs},
      {onLastPage(3), u"P12"_qs},
      {onLastPage(4), {}},  // an empty tile
      {[&] { QTest::mouseClick(Tile(4), Qt::LeftButton); }, {}},
      {keys({Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}), u"P04"_qs},
      {keys({Qt::Key_Left, Qt::Key_Up, Qt::Key_Enter}), u"P00"_qs},
      {keys({Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return}), {}},  // nothing selected
      {keys({Qt::Key_PageDown, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}), u"P12"_qs},
      {keys({Qt::Key_Right, Qt::Key_Escape}), {}},
      // By the Tab key to the buttons and back to the selected tile.
      {keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return}), u"P01"_qs},
      // Return on a button is the button's.
      {[&] {
         Find<QWidget>(*pager_, u"cmdForward"_qs)->setFocus();
         Key(Qt::Key_Return);
         DoubleClick(0);
       },
       u"P09"_qs}};
  for (const auto& [steps, code] : cases) EXPECT_EQ(Show(steps), code);
}

TEST_F(Pager, AProductDeletedMeanwhileLeavesAnEmptyTile) {
  EXPECT_EQ(Show([&] { DoubleClick(0); }), QString()) << "nothing to choose in an empty catalog";
  EXPECT_TRUE(shown_);
  AddProducts(12);
  const QString code = Show([&] {
    connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='P10'"_qs);
    Click(u"cmdForward"_qs);
    EXPECT_TRUE(Page().startsWith(u"P09,,P11,")) << Page();
    DoubleClick(1);
    EXPECT_TRUE(pager_->isVisible());
    DoubleClick(2);
  });
  EXPECT_EQ(code, u"P11"_qs);
}
