// The preview and the pager, worked as their users do.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <QTimer>

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

class Preview : public StoreFixture {
 protected:
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

  // Shows the pager; the steps are taken when it is open, and it is closed after them.
  QString Show(const std::function<void()>& steps) {
    pager_ = std::make_unique<frmImageViewer>();
    pager_->IDCatalogo = catalog_;
    pager_->Connection = &connection_;
    QTimer::singleShot(0, pager_.get(), [&] {
      steps();
      pager_->reject();
    });
    return pager_->ShowCatalog(u"ORDER BY CodiceProdotto"_qs, {});
  }

  QWidget* Tile(int i) { return Find<QWidget>(*pager_, u"intPicture_%1"_qs.arg(i)); }
  void Click(const QString& button) {
    QTest::mouseClick(Find<QAbstractButton>(*pager_, button), Qt::LeftButton);
  }
  // Goes to the focused control, as a key does.
  void Key(Qt::Key key) {
    QWidget* focus = pager_->focusWidget();
    QTest::keyClick(focus != nullptr ? focus : pager_.get(), key);
  }
  void DoubleClick(int tile) { QTest::mouseDClick(Tile(tile), Qt::LeftButton); }

  int catalog_ = 0;
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
  WriteFileSafely(AppFile(u"cut.jpg"_qs), ContentOf(window_.Percorso).chopped(300));
  for (const QString& bad : {u""_qs, AppFile(u"gone.jpg"_qs), AppPath(), AppFile(u"cut.jpg"_qs)}) {
    window_.ImageLoad(bad);
    EXPECT_FALSE(Box()->isVisible()) << bad;
    window_.ImageLoad(Picture(u"tall.jpg"_qs, {100, 200}));
    EXPECT_TRUE(Box()->isVisible()) << bad;
  }
}

TEST_F(Pager, ShowsTheThumbnailElseTheMainImageElseNothing) {
  // Thumbnail, a broken one, main picture.
  const std::pair<QString, QString> cases[] = {
      {u"t-m"_qs, u"red"_qs}, {u"--m"_qs, u"blue"_qs}, {u"-bm"_qs, u"blue"_qs}, {u"-b-"_qs, u"none"_qs}};
  AddProducts(4);
  for (int i = 0; i < 4; ++i) {
    const QString code = u"P0%1"_qs.arg(i);
    const QString main = MainImagePath(catalog_, code);
    SetImage(code, main);
    const QString files = cases[i].first;
    if (files[0] == u't') WritePicture(ThumbnailPath(main), {200, 50}, Qt::red);
    if (files[1] == u'b') WriteFileSafely(ThumbnailPath(main), "\xFF\xD8\xFF no picture");
    if (files[2] == u'm') WritePicture(main, {800, 600}, Qt::blue);
  }
  Show([&] {
    for (int i = 0; i < 4; ++i) EXPECT_EQ(ColourOf(*Tile(i)), cases[i].second) << cases[i].first;
    // A place larger than the thumbnail gets the main image, once the window is at rest.
    pager_->resize(pager_->size() * 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ColourOf(*Tile(0)) == u"blue"_qs; }));
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
      {onLastPage(3), u"P12"_qs},
      {onLastPage(4), {}},  // an empty tile
      {keys({Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}), u"P04"_qs},
      {keys({Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return}), {}},  // nothing selected
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
  AddProducts(12);
  const QString code = Show([&] {
    connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='P10'"_qs);
    Click(u"cmdForward"_qs);
    DoubleClick(1);
    EXPECT_TRUE(pager_->isVisible());
    DoubleClick(2);
  });
  EXPECT_EQ(code, u"P11"_qs);
}
