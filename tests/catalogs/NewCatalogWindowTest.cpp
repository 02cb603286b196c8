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
  void ChooseLogo(const QString& path) {
    dialogs_.ExpectFile(path);
    QTest::mouseClick(Find<QPushButton>(u"cmdBrowse"_qs), Qt::LeftButton);
  }
  static QString Picture(const QString& name, const char* format = "JPG") {
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(AppFile(name), format));
    return AppFile(name);
  }
  // The pictures of the previews on the screen.
  QStringList Previews() const {
    QStringList shown;
    for (const frmImage* preview : wizard_.findChildren<frmImage*>())
      if (preview->isVisible()) shown += preview->Percorso;
    return shown;
  }

  ScriptedDialogs dialogs_;
  frmNewCatalog wizard_;
};

}  // namespace

TEST_F(Wizard, RefusalsKeepTheStepAndCanBeMended) {
  dialogs_.ExpectMessage(u"Catalog name required"_qs, BoxStyle::Stop);
  Click(Next);
  EXPECT_TRUE(AtStep(1));
  Type(u"txtValue_2"_qs, u"COLORE"_qs);
  GoTo(4);
  dialogs_.ExpectMessage(
      u"Can't create catalog. You can't insert value fields with the same names as filter fields."_qs,
      BoxStyle::Information);
  Click(Finish);
  EXPECT_TRUE(AtStep(4));
  EXPECT_EQ(Count(u"Cataloghi"_qs), 0);
  Click(Back, 3);
  Type(u"txtValue_2"_qs, u"Peso"_qs);
  Click(Next, 3);
  Click(Finish);
  EXPECT_FALSE(wizard_.isVisible());
  EXPECT_EQ(One(u"NomeValore3"_qs, u"Cataloghi"_qs), u"Peso"_qs);
}

TEST_F(Wizard, IsWorkedByKeyboardAlone) {
  // From the first box once round: only the front panel's controls and the enabled buttons.
  QStringList names;
  for (QString name; !names.contains(name = wizard_.focusWidget()->objectName());) {
    names += name;
    QTest::keyClick(wizard_.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(names.join(u' '),
            u"txtCatalogName txtCatalogDescription txtValue_0 txtValue_1 txtValue_2 cmdNav_0 cmdNav_3");
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

TEST_F(Wizard, OffersTheCompanyOfTheMostRecentCatalogButNotOverWhatWasTyped) {
  connection_.Execute(
      u"INSERT INTO Cataloghi (Azienda,Citta,CAP,Logo) VALUES ('Lunari','Faenza','48018','/l.jpg')"_qs);
  GoTo(3);
  EXPECT_EQ(Text(u"txtCap"_qs) + Text(u"txtLogo"_qs), u"48018") << "the other catalog's logo is its own";
  Type(u"txtAzienda"_qs, {});
  Type(u"txtCap"_qs, u"00100"_qs);
  Click(Back);
  Click(Next);
  EXPECT_EQ(Text(u"txtAzienda"_qs) + Text(u"txtCap"_qs), u"Lunari00100");
}

TEST_F(Wizard, TakesALogoAndShowsIt) {
  GoTo(3);
  const QString good = Picture(u"good.jpg"_qs);
  ChooseLogo(good);
  EXPECT_EQ(Previews(), QStringList{good});
  // Neither a chooser that is cancelled nor a file that is no JPEG changes anything.
  ChooseLogo({});
  const QString fake = Picture(u"fake.jpg"_qs, "PNG");
  dialogs_.ExpectFile(fake);
  dialogs_.ExpectMessage(u"Error: The file "_qs + fake + u" cannot be read: it is no JPEG picture"_qs,
                         BoxStyle::Stop);
  QTest::mouseClick(Find<QPushButton>(u"cmdBrowse"_qs), Qt::LeftButton);
  EXPECT_EQ(Text(u"txtLogo"_qs), good);
  Activate();
  Find(u"txtLogo"_qs)->setFocus();
  QTest::keyClick(Find(u"txtLogo"_qs), Qt::Key_Delete);
  EXPECT_EQ(Text(u"txtLogo"_qs), QString());
  EXPECT_TRUE(Previews().isEmpty()) << "nothing is chosen any more";
}
