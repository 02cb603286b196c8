// The wizard, worked as its users do.
#include <gtest/gtest.h>

#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "catalogs/frmNewCatalog.h"
#include "images/frmImage.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

enum Button { Next, Back, Finish };

class Wizard : public StoreFixture {
 protected:
  Wizard() {
    wizard_.ConnectionText = connection_.ConnectionText();
    wizard_.LoadForm();
    wizard_.show();
    Activate();
  }
  void Activate() {
    wizard_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&wizard_));
  }

  template <class T = QLineEdit>
  T* Find(const QString& name) const {
    T* found = wizard_.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  void Click(Button button, int times = 1) const {
    for (int i = 0; i < times; ++i)
      QTest::mouseClick(Find<QPushButton>(u"cmdNav_%1"_qs.arg(int(button))), Qt::LeftButton);
  }
  void Type(const QString& box, const QString& text) const {
    Find(box)->selectAll();
    QTest::keyClick(Find(box), Qt::Key_Delete);
    QTest::keyClicks(Find(box), text);
  }
  QString Text(const QString& box) const { return Find(box)->text(); }
  // Fills what must be there and goes to a step.
  void GoTo(int step) {
    Type(u"txtCatalogName"_qs, u"Nome"_qs);
    if (step > 1) Click(Next);
    if (step > 2) Type(u"txtFilter_0"_qs, u"Colore"_qs);
    if (step > 2) Click(Next, step - 2);
    EXPECT_TRUE(AtStep(step));
  }
  bool AtStep(int step) const { return Find<QWidget>(u"framestep_%1"_qs.arg(step - 1))->isVisible(); }

  ScriptedDialogs dialogs_;
  frmNewCatalog wizard_;
};

}  // namespace

TEST_F(Wizard, RefusalsKeepTheStepAndCanBeMended) {
  connection_.Execute(u"INSERT INTO Cataloghi (Azienda,CAP,Logo) VALUES ('Lunari','48018','/l.jpg')"_qs);
  dialogs_.ExpectMessage(u"Catalog name required"_qs, BoxStyle::Stop);
  Click(Next);
  EXPECT_TRUE(AtStep(1));
  Type(u"txtValue_2"_qs, u"COLORE"_qs);
  GoTo(3);
  // The company of the most recent catalog is offered, but not over what was typed, nor with its logo.
  Type(u"txtCap"_qs, u"00100"_qs);
  Click(Back);
  Click(Next, 2);
  dialogs_.ExpectMessage(
      u"Can't create catalog. You can't insert value fields with the same names as filter fields."_qs,
      BoxStyle::Information);
  Click(Finish);
  EXPECT_TRUE(AtStep(4));
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
  Click(Back, 3);
  Type(u"txtValue_2"_qs, u"Peso"_qs);
  Click(Next, 3);
  Click(Finish);
  EXPECT_FALSE(wizard_.isVisible());
  EXPECT_EQ(One(u"NomeValore3||Azienda||CAP||ifnull(Logo,'-')"_qs, u"Cataloghi"_qs, u"IDCatalogo>1"_qs),
            u"PesoLunari00100-"_qs);
}

TEST_F(Wizard, IsWorkedByKeyboardAlone) {
  // From the first box once round: only the front panel's controls and the enabled buttons.
  QStringList names;
  for (QString name; !names.contains(name = wizard_.focusWidget()->objectName());) {
    names += name;
    QTest::keyClick(wizard_.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(
      names.join(u' '),
      u"txtCatalogName txtCatalogDescription txtValue_0 txtValue_1 txtValue_2 cmdNav_0 cmdNav_3 cmdNav_4");
  for (const QString& typed : {u"Nome"_qs, u"Colore"_qs, QString()}) {
    QTest::keyClicks(wizard_.focusWidget(), typed);
    QTest::keyClick(wizard_.focusWidget(), Qt::Key_Return);
  }
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Down);
  QSignalSpy another(&wizard_, &frmNewCatalog::AnotherWanted);
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(another.count(), 1);
  EXPECT_EQ(One(u"NomeFiltro1"_qs, u"Cataloghi"_qs), u"Colore"_qs);
}

TEST_F(Wizard, TakesALogoAndShowsIt) {
  GoTo(3);
  const QString good = AppFile(u"good.jpg"_qs);
  EXPECT_TRUE(QImage(30, 20, QImage::Format_RGB32).save(good));
  const auto shown = [&] {
    const QList<frmImage*> previews = wizard_.findChildren<frmImage*>();
    return std::any_of(previews.begin(), previews.end(), [](frmImage* one) { return one->isVisible(); });
  };
  // A chooser that is cancelled changes nothing.
  for (const QString& chosen : {good, QString()}) {
    dialogs_.ExpectFile(chosen);
    QTest::mouseClick(Find<QPushButton>(u"cmdBrowse"_qs), Qt::LeftButton);
    EXPECT_TRUE(Text(u"txtLogo"_qs) == good && shown());
  }
  Activate();
  Find(u"txtLogo"_qs)->setFocus();
  QTest::keyClick(Find(u"txtLogo"_qs), Qt::Key_Delete);
  EXPECT_TRUE(Text(u"txtLogo"_qs).isEmpty() && !shown());
}
