// The wizard, worked as its users do.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
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
  GoTo(2);
  dialogs_.ExpectMessage(u"Insert at least a filter name"_qs, BoxStyle::Stop);
  Click(Next);
  EXPECT_TRUE(AtStep(2));
  Click(Back);  // checks nothing
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
  const auto round = [this] {
    QStringList names;
    for (QString name; !names.contains(name = wizard_.focusWidget()->objectName());) {
      names += name;
      QTest::keyClick(wizard_.focusWidget(), Qt::Key_Tab);
    }
    return names.join(u' ');
  };
  EXPECT_EQ(round(),
            u"txtCatalogName txtCatalogDescription txtValue_0 txtValue_1 txtValue_2 cmdNav_0 cmdNav_3");
  QTest::keyClicks(wizard_.focusWidget(), u"Nome"_qs);
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Return);
  QTest::keyClicks(wizard_.focusWidget(), u"Colore"_qs);
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(round(),
            u"txtAzienda txtIndirizzo txtCitta txtProvincia txtCap txtStato txtTel txtFax txtEmail "
            "txtUrl txtExtras txtLogo cmdBrowse cmdNav_1 cmdNav_0 cmdNav_3");
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Return);
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Down);
  QSignalSpy another(&wizard_, &frmNewCatalog::AnotherWanted);
  QTest::keyClick(wizard_.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(another.count(), 1);
  EXPECT_EQ(One(u"NomeFiltro1"_qs, u"Cataloghi"_qs), u"Colore"_qs);
}

TEST_F(Wizard, TheStoredFormOfANameIsHeldWithinItsLimitWhileTyping) {
  auto* box = Find(u"txtValue_1"_qs);
  QTest::keyClicks(box, QString(13, u'.') + u'x');
  EXPECT_EQ(box->text(), QString(12, u'.')) << "full until something goes";
  box->setCursorPosition(3);
  QTest::keyClick(box, Qt::Key_Backspace);
  QTest::keyClicks(box, u"abc"_qs);
  EXPECT_EQ(box->text(), u"..abc"_qs + QString(9, u'.'));
  // Within the limit the box is left alone: the caret stays, and what was typed can be undone.
  auto* filter = Find(u"txtFilter_4"_qs);
  QTest::keyClicks(filter, u"a.b"_qs);
  filter->setCursorPosition(1);
  QTest::keyClicks(filter, u"#"_qs);
  EXPECT_EQ(filter->cursorPosition(), 2);
  QTest::keyClick(filter, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(u"a.b"_qs.startsWith(filter->text())) << filter->text().toStdString();
}

TEST_F(Wizard, APastedLineBreakIsNeitherSeenNorTaken) {
  const auto paste = [this](const QString& box, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    Find(box)->paste();
  };
  paste(u"txtCatalogName"_qs, u"\n"_qs);
  dialogs_.ExpectMessage(u"Catalog name required"_qs, BoxStyle::Stop);
  Click(Next);
  Find(u"txtCatalogName"_qs)->clear();
  paste(u"txtCatalogName"_qs, u"Nome\r\nnuovo\n"_qs);
  Click(Next);
  paste(u"txtFilter_0"_qs, u"Colore\n"_qs);
  Click(Next, 2);
  Click(Finish);
  EXPECT_EQ(One(u"NomeCatalogo||'|'||NomeFiltro1"_qs, u"Cataloghi"_qs), u"Nome nuovo|Colore"_qs);
}

TEST_F(Wizard, OffersTheCompanyOfTheMostRecentCatalogButNotOverWhatWasTyped) {
  connection_.Execute(
      u"INSERT INTO Cataloghi (Azienda,Citta,CAP,Extras,Logo) VALUES ('Lunari','Faenza','48018',"
      "'a'||char(10)||'b','/l.jpg')"_qs);
  GoTo(3);
  const auto offered = [this] {
    return QStringList{Text(u"txtAzienda"_qs), Text(u"txtCitta"_qs), Text(u"txtCap"_qs)}.join(u' ');
  };
  EXPECT_EQ(offered(), u"Lunari Faenza 48018");
  EXPECT_EQ(Text(u"txtLogo"_qs), QString()) << "the other catalog's logo is its own";

  // With a company there, coming back changes nothing.
  Type(u"txtAzienda"_qs, u"Altri"_qs);
  Type(u"txtCitta"_qs, {});
  ChooseLogo(Picture(u"l.jpg"_qs));
  Click(Back);
  Click(Next);
  EXPECT_EQ(offered(), u"Altri  48018");

  // Without one it is offered again, but not over what was typed and chosen.
  Type(u"txtAzienda"_qs, {});
  Type(u"txtCap"_qs, u"00100"_qs);
  Click(Next);
  Click(Back);
  EXPECT_EQ(offered(), u"Lunari Faenza 00100");
  Click(Next);
  Click(Finish);
  EXPECT_EQ(One(u"CAP||Extras||Logo"_qs, u"Cataloghi"_qs, u"NomeCatalogo='Nome'"_qs),
            QString(u"00100a\nb"_qs + AppFile(u"Images/2-Logo.jpg"_qs)));
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

  const QString other = Picture(u"other.jpg"_qs);
  ChooseLogo(other);
  EXPECT_EQ(Previews(), QStringList{other}) << "the preview of the former logo goes";
  Activate();
  Find(u"txtLogo"_qs)->setFocus();
  QTest::keyClick(Find(u"txtLogo"_qs), Qt::Key_Delete);
  EXPECT_EQ(Text(u"txtLogo"_qs), QString());
  EXPECT_TRUE(Previews().isEmpty()) << "nothing is chosen any more";
  ChooseLogo(good);
  Click(Next);
  Click(Finish);
  EXPECT_TRUE(Previews().isEmpty());
}

TEST_F(Wizard, AfterALogoThatCannotBeCopiedFinishGoesOnWithTheSameCatalog) {
  GoTo(3);
  Type(u"txtFax"_qs, u"99"_qs);
  ChooseLogo(Picture(u"l.jpg"_qs));
  Click(Next);
  QDir(AppPath()).rmdir(u"Images"_qs);
  const QString target = AppFile(u"Images/1-Logo.jpg"_qs);
  dialogs_.ExpectMessage(
      u"Errore: The file "_qs + target + u" cannot be written: No such file or directory"_qs, BoxStyle::Stop);
  Click(Finish);
  EXPECT_TRUE(AtStep(4));
  QDir(AppPath()).mkdir(u"Images"_qs);
  Click(Back);
  Type(u"txtFax"_qs, {});
  Click(Back);
  Click(Next);
  EXPECT_EQ(Text(u"txtFax"_qs), QString()) << "the row stored before is no other catalog";
  Click(Next);
  Click(Finish);
  EXPECT_FALSE(wizard_.isVisible());
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
  EXPECT_EQ(One(u"Logo||ifnull(Fax,'')"_qs, u"Cataloghi"_qs), target);
}
