// Starts on what a user can meet: a missing, foreign or broken database.
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "base/Settings.h"
#include "shell/WidgetApplication.h"
#include "shell/frmCatalogs.h"
#include "store/LockPatience.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

// Collects what is shown instead of expecting a text to the letter.
class RecordingDialogs : public ScriptedDialogs {
 public:
  QStringList shown;

 protected:
  void ShowMessage(QWidget*, const QString& text, BoxStyle, const QString&) override { shown += text; }
};

class Start : public StoreFixture {
 protected:
  Start() { SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, QString()); }
};

}  // namespace

TEST_F(Start, ADatabaseThatCannotBeUsedIsToldAndLeftUntouched) {
  const QByteArray content = QByteArray("not a database ").repeated(100);
  connection_.Close();
  WriteFileSafely(Path(), content);
  RecordingDialogs dialogs;
  frmCatalogs window;
  window.LoadForm();
  EXPECT_TRUE(dialogs.shown.value(0).contains(u"Catalog.db"));
  EXPECT_FALSE(window.findChild<QPushButton*>(u"cmdNew"_qs)->isEnabled());
  EXPECT_EQ(ContentOf(Path()), content);
  // The box that tells of a failed reload gives the activation back to the window, which must not bring the
  // box again.
  QEvent activate(QEvent::WindowActivate);
  EXPECT_THROW(static_cast<QObject&>(window).event(&activate), Error);
  EXPECT_NO_THROW(static_cast<QObject&>(window).event(&activate));
}

// One box, and the list comes as soon as the other program lets go.
TEST_F(Start, ALockIsToldOnceAndWaitedFor) {
  connection_.Execute(u"INSERT INTO Cataloghi (NomeCatalogo) VALUES ('one')"_qs);
  connection_.Execute(u"BEGIN EXCLUSIVE"_qs);
  RecordingDialogs dialogs;
  frmCatalogs window;
  {
    const LockPatience none(0);
    window.LoadForm();
  }
  QEvent activate(QEvent::WindowActivate);
  EXPECT_NO_THROW(static_cast<QObject&>(window).event(&activate));
  EXPECT_EQ(dialogs.shown.filter(u"in use by another program"_qs).size(), 1);
  const auto* list = window.findChild<QListWidget*>(u"LstWCatalogs"_qs);
  const auto* create = window.findChild<QPushButton*>(u"cmdNew"_qs);
  EXPECT_FALSE(create->isEnabled()) << "it would have nowhere to store";
  window.findChild<QTimer*>(u"retry"_qs)->start(0);
  connection_.RollbackTrans();
  EXPECT_TRUE(QTest::qWaitFor([&] { return list->count() == 1; }));
  EXPECT_TRUE(create->isEnabled());
  // While the list is up a lock leaves it as it is.
  connection_.Execute(u"BEGIN EXCLUSIVE"_qs);
  EXPECT_NO_THROW(static_cast<QObject&>(window).event(&activate));
  EXPECT_EQ(list->count(), 1);
  EXPECT_EQ(dialogs.shown.filter(u"database"_qs).size(), 1);
}

// A window that shows a box while it is closed already: keys come faster than the window system moves the
// focus, and the activation of a window comes after its end.
TEST(ClosedWindow, TakesNoInputAndOutlivesTheBoxThatItShows) {
  struct Window : QWidget {
    int keys = 0;
    std::function<void()> activated;
    void keyPressEvent(QKeyEvent*) override { ++keys; }
    bool event(QEvent* event) override {
      if (event->type() == QEvent::User) activated();
      return QWidget::event(event);
    }
  };
  const QPointer<Window> window(new Window);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->show();
  bool there = false;
  window->activated = [&] {
    window->close();
    QTest::keyClick(window.data(), Qt::Key_Return);
    QEventLoop box;
    QTimer::singleShot(0, &box, [&] {
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      there = !window.isNull();
      box.quit();
    });
    box.exec();
    EXPECT_EQ(window.isNull() ? -1 : window->keys, 0);
  };
  QEvent work(QEvent::User);
  QCoreApplication::sendEvent(window, &work);
  EXPECT_TRUE(there);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.isNull(); }));
}

TEST(DarkDesktop, LeavesTheHintsInEmptyLinesLegible) {
  QPalette dark;
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::PlaceholderText, Qt::black);
  QApplication::setPalette(dark);
  EXPECT_EQ(QApplication::palette().color(QPalette::PlaceholderText).lightness(), 255);
  QApplication::setPalette({});
}
