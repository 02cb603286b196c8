// The wizard, worked as its users do.
#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "catalogs/frmNewCatalog.h"
#include "images/frmImage.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

enum Button { Next, Back, Finish, Cancel, Help };

class Wizard : public StoreFixture {
 protected:
  void Open(const QString& language = u"English"_qs) {
    SetLanguage(language);
    wizard_ = std::make_unique<frmNewCatalog>();
    wizard_->ConnectionText = connection_.ConnectionText();
    wizard_->LoadForm();
    wizard_->show();
    wizard_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(wizard_.get()));
  }

  template <class T = QLineEdit>
  T* Find(const QString& name) const {
    T* found = wizard_->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QPushButton* Nav(Button button) const { return Find<QPushButton>(u"cmdNav_%1"_qs.arg(int(button))); }
  void Click(Button button) const { QTest::mouseClick(Nav(button), Qt::LeftButton); }
  void Type(const QString& box, const QString& text) const {
    auto* edit = Find(box);
    edit->selectAll();
    if (text.isEmpty()) QTest::keyClick(edit, Qt::Key_Delete);
    // As an input method hands over what keys alone do not give.
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(edit, &event);
  }
  void TypeAll(const QString& boxes, const QStringList& texts) const {
    for (int i = 0; i < texts.size(); ++i) Type(boxes + QString::number(i), texts[i]);
  }
  QString Text(const QString& box) const { return Find(box)->text(); }
  int Step() const {
    for (int i = 0; i < 4; ++i)
      if (Find<QWidget>(u"framestep_%1"_qs.arg(i))->isVisible()) return i + 1;
    return 0;
  }
  // Fills what must be there and goes to a step.
  void GoTo(int step) {
    Type(u"txtCatalogName"_qs, u"Nome"_qs);
    if (step > 1) Click(Next);
    if (step > 2) Type(u"txtFilter_0"_qs, u"Colore"_qs);
    for (int i = 2; i < step; ++i) Click(Next);
    ASSERT_EQ(Step(), step);
  }
  void ChooseLogo(const QString& path) {
    dialogs_.ExpectFile(path);
    QTest::mouseClick(Find<QPushButton>(u"cmdBrowse"_qs), Qt::LeftButton);
  }
  QString Picture(const QString& name, const char* format = "JPG") const {
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QString path = AppFile(name);
    EXPECT_TRUE(image.save(path, format));
    return path;
  }
  QList<frmImage*> Previews() const {
    QList<frmImage*> shown;
    for (frmImage* preview : wizard_->findChildren<frmImage*>())
      if (preview->isVisible()) shown += preview;
    return shown;
  }

  ScriptedDialogs dialogs_;
  std::unique_ptr<frmNewCatalog> wizard_;
};

}  // namespace

TEST_F(Wizard, SpeaksTheLanguageAndLeadsThroughItsSteps) {
  struct Case {
    QString language, title, next, cancel, name, value, filter, company, end;
    QStringList steps;  // how each text begins
  };
  for (const Case& c : {Case{u"Italian"_qs,
                             u"Creazione nuovo catalogo"_qs,
                             u"Avanti >>"_qs,
                             u"Annulla"_qs,
                             u"Nome"_qs,
                             u"3° Valore"_qs,
                             u"5° Filtro"_qs,
                             u"Sito Internet"_qs,
                             u"Torna al menù principale"_qs,
                             {u"Dati generali"_qs, u"Impostazione"_qs, u"Generazione catalogo completata"_qs,
                              u"Informazioni Aziendali"_qs}},
                        Case{u"English"_qs,
                             u"New catalog creation"_qs,
                             u"&Next >>"_qs,
                             u"&Cancel"_qs,
                             u"Name"_qs,
                             u"3rd Value"_qs,
                             u"5th Filter"_qs,
                             u"Web site"_qs,
                             u"Back to main menu"_qs,
                             {u"Insert here general"_qs, u"Insert here up to five"_qs,
                              u"Insert here the company"_qs, u"Catalog generation completed"_qs}}}) {
    Open(c.language);
    EXPECT_EQ(wizard_->windowTitle(), c.title);
    EXPECT_EQ(Nav(Next)->text(), c.next);
    EXPECT_EQ(Nav(Cancel)->text(), c.cancel);
    EXPECT_EQ(Find<QLabel>(u"lblCatalogName"_qs)->text(), c.name);
    EXPECT_EQ(Find<QLabel>(u"lblValue_2"_qs)->text(), c.value);
    EXPECT_EQ(Find<QLabel>(u"lblFilter_4"_qs)->text(), c.filter);
    EXPECT_EQ(Find<QLabel>(u"lblUrl"_qs)->text(), c.company);
    EXPECT_EQ(Find<QRadioButton>(u"optWizEnd_2"_qs)->text(), c.end);
    Type(u"txtCatalogName"_qs, u"a"_qs);
    Type(u"txtFilter_0"_qs, u"b"_qs);
    QStringList enabled;
    for (int step = 1; step <= 4; ++step) {
      EXPECT_EQ(Step(), step);
      EXPECT_TRUE(Find<QLabel>(u"lblStep"_qs)->text().startsWith(c.steps[step - 1])) << c.steps[step - 1];
      EXPECT_FALSE(Find<QLabel>(u"ImageStep"_qs)->pixmap().isNull());
      QString row;
      for (const Button button : {Next, Back, Finish, Cancel, Help})
        row += Nav(button)->isEnabled() ? u'+' : u'-';
      enabled += row;
      EXPECT_TRUE(Nav(step == 4 ? Finish : Next)->isDefault());
      if (step < 4) Click(Next);
    }
    EXPECT_EQ(enabled, (QStringList{u"+--+-"_qs, u"++-+-"_qs, u"++-+-"_qs, u"-+++-"_qs}));
  }
}

TEST_F(Wizard, TellsWhatIsWrongWithNamesInItsOrder) {
  const auto stop = [&](const QString& text) { dialogs_.ExpectMessage(text, BoxStyle::Stop); };
  struct Case {
    QString language, name;
    QStringList names;  // of values, or of filters where there is no catalog name to type
    QStringList messages;
  };
  const QString sameValues = u"You can't insert value fields with the same name"_qs;
  const QString sameFilters = u"Non è possibile inserire filtri con nome uguale"_qs;
  for (const Case& c : {
           Case{u"English"_qs, {}, {}, {u"Catalog name required"_qs}},
           Case{u"English"_qs, {}, {u"È"_qs, u"è"_qs}, {u"Catalog name required"_qs, sameValues}},
           Case{u"English"_qs, u"a"_qs, {u"x"_qs, u"X"_qs, u"x"_qs}, {sameValues, sameValues}},
           Case{u"English"_qs,
                u"a"_qs,
                {u"CODE"_qs, u"code"_qs},
                {sameValues, u"The name 'CODE' is not allowed for a value field."_qs}},
           Case{u"English"_qs, u"a"_qs, {u"codice"_qs, u"Descrizione"_qs}, {}},
           Case{u"Italian"_qs, u"a"_qs, {u"Code"_qs, u"Description"_qs}, {}},
           Case{u"Italian"_qs,
                {},
                {u"x"_qs, {}, u"Codice"_qs},
                {u"Inserire almeno un nome di catalogo"_qs,
                 u"Il nome 'Codice' non è consentito per  un campo valore."_qs}},
       }) {
    Open(c.language);
    Type(u"txtCatalogName"_qs, c.name);
    TypeAll(u"txtValue_"_qs, c.names);
    for (const QString& message : c.messages) stop(message);
    Click(Next);
    EXPECT_EQ(dialogs_.Left(), 0);
    EXPECT_EQ(Step(), c.messages.isEmpty() ? 2 : 1);
  }
  for (const Case& c : {
           Case{u"Italian"_qs, {}, {{}, u"Colore"_qs}, {u"Inserire almeno un criterio di filtraggio"_qs}},
           Case{u"English"_qs, {}, {}, {u"Insert at least a filter name"_qs}},
           Case{u"Italian"_qs, {}, {u"Colore"_qs, {}, {}, u"colore"_qs}, {sameFilters}},
           Case{u"Italian"_qs,
                {},
                {u"Codice"_qs, u"a"_qs, u"A"_qs},
                {u"Il nome 'Codice' non è consentito per un campo filtro."_qs}},
           Case{u"English"_qs, {}, {u"Codice"_qs, {}, {}, {}, u"a"_qs}, {}},
           Case{u"English"_qs,
                {},
                {{}, u"description"_qs},
                {u"Insert at least a filter name"_qs,
                 u"The name 'description' is not allowed for a filter field."_qs}},
       }) {
    Open(c.language);
    GoTo(2);
    TypeAll(u"txtFilter_"_qs, c.names);
    for (const QString& message : c.messages) stop(message);
    Click(Next);
    EXPECT_EQ(dialogs_.Left(), 0);
    EXPECT_EQ(Step(), c.messages.isEmpty() ? 3 : 2);
  }
}

TEST_F(Wizard, AValueNamedLikeAFilterIsRefusedAtFinishAndCanBeMended) {
  Open();
  Type(u"txtCatalogName"_qs, u"a"_qs);
  Type(u"txtValue_2"_qs, u"COLORE"_qs);
  GoTo(4);
  dialogs_.ExpectMessage(
      u"Can't create catalog. You can't insert value fields with the same names as filter fields."_qs,
      BoxStyle::Information);
  Click(Finish);
  EXPECT_EQ(Step(), 4);
  EXPECT_EQ(Count(u"Cataloghi"_qs), 0);
  for (int i = 0; i < 3; ++i) Click(Back);
  Type(u"txtValue_2"_qs, u"Peso"_qs);
  for (int i = 0; i < 3; ++i) Click(Next);
  Click(Finish);
  EXPECT_FALSE(wizard_->isVisible());
  EXPECT_EQ(One(u"NomeValore3"_qs, u"Cataloghi"_qs).toString(), u"Peso"_qs);
}

TEST_F(Wizard, CancelAndEscapeWriteNothingAndBackChecksNothing) {
  Open();
  GoTo(2);
  Type(u"txtFilter_0"_qs, {});
  Click(Back);
  EXPECT_EQ(Step(), 1);
  EXPECT_EQ(Text(u"txtCatalogName"_qs), u"Nome"_qs);
  QSignalSpy cancelled(wizard_.get(), &frmNewCatalog::Cancelled);
  Click(Cancel);
  EXPECT_FALSE(wizard_->isVisible());
  Open();
  GoTo(4);
  QSignalSpy escaped(wizard_.get(), &frmNewCatalog::Cancelled);
  QTest::keyClick(wizard_.get(), Qt::Key_Escape);
  EXPECT_FALSE(wizard_->isVisible());
  EXPECT_EQ(cancelled.count() + escaped.count(), 2);
  EXPECT_EQ(Count(u"Cataloghi"_qs), 0);
}

TEST_F(Wizard, IsWorkedByKeyboardAlone) {
  Open();
  // From the first box once round: only the front panel's controls and the enabled buttons.
  const auto round = [this] {
    QStringList names;
    for (QWidget* first = wizard_->focusWidget(); !names.contains(wizard_->focusWidget()->objectName());) {
      names += wizard_->focusWidget()->objectName();
      QTest::keyClick(wizard_->focusWidget(), Qt::Key_Tab);
      if (wizard_->focusWidget() == first) break;
    }
    return names;
  };
  EXPECT_EQ(round(), (QStringList{u"txtCatalogName"_qs, u"txtCatalogDescription"_qs, u"txtValue_0"_qs,
                                  u"txtValue_1"_qs, u"txtValue_2"_qs, u"cmdNav_0"_qs, u"cmdNav_3"_qs}));
  QTest::keyClicks(wizard_->focusWidget(), u"Nome"_qs);
  QTest::keyClick(wizard_->focusWidget(), Qt::Key_Return);
  QTest::keyClicks(wizard_->focusWidget(), u"Colore"_qs);
  QTest::keyClick(wizard_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(round(), (QStringList{u"txtAzienda"_qs, u"txtIndirizzo"_qs, u"txtCitta"_qs, u"txtProvincia"_qs,
                                  u"txtCap"_qs, u"txtStato"_qs, u"txtTel"_qs, u"txtFax"_qs, u"txtEmail"_qs,
                                  u"txtUrl"_qs, u"txtExtras"_qs, u"txtLogo"_qs, u"cmdBrowse"_qs,
                                  u"cmdNav_1"_qs, u"cmdNav_0"_qs, u"cmdNav_3"_qs}));
  QTest::keyClick(wizard_->focusWidget(), Qt::Key_Return);
  QTest::keyClick(wizard_->focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(Find<QRadioButton>(u"optWizEnd_1"_qs)->isChecked());
  QSignalSpy another(wizard_.get(), &frmNewCatalog::AnotherWanted);
  QTest::keyClick(wizard_->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(another.count(), 1);
  EXPECT_EQ(One(u"NomeFiltro1"_qs, u"Cataloghi"_qs).toString(), u"Colore"_qs);
}

TEST_F(Wizard, TheStoredFormOfANameIsHeldWithinItsLimitWhileTyping) {
  Open();
  auto* box = Find(u"txtValue_1"_qs);
  QTest::keyClicks(box, QString(13, u'.'));
  EXPECT_EQ(box->text(), QString(12, u'.'));
  QTest::keyClicks(box, u"x"_qs);
  EXPECT_EQ(box->text().size(), 12) << "full until something goes";
  box->setCursorPosition(3);
  QTest::keyClick(box, Qt::Key_Backspace);
  EXPECT_EQ(box->cursorPosition(), 2);
  QTest::keyClicks(box, u"abc"_qs);
  EXPECT_EQ(box->text(), u"..abc"_qs + QString(9, u'.'));

  QGuiApplication::clipboard()->setText(QString(60, u'&'));
  box->selectAll();
  box->paste();
  EXPECT_EQ(box->text(), QString(12, u'&'));
  EXPECT_EQ(box->cursorPosition(), 12);

  // Within the limit the box is left alone: the caret stays, and what was typed can be undone.
  auto* filter = Find(u"txtFilter_4"_qs);
  QTest::keyClicks(filter, u"a.b"_qs);
  filter->setCursorPosition(1);
  QTest::keyClicks(filter, u"#"_qs);
  EXPECT_EQ(filter->cursorPosition(), 2);
  QTest::keyClick(filter, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(filter->text(), u"a#.b"_qs);
  EXPECT_TRUE(u"a.b"_qs.startsWith(filter->text()));
}

TEST_F(Wizard, APastedLineBreakIsNeitherSeenNorTaken) {
  Open();
  const auto paste = [this](const QString& name, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    Find(name)->paste();
  };
  paste(u"txtCatalogName"_qs, u"\n"_qs);
  paste(u"txtValue_0"_qs, u"Code\r\n"_qs);
  dialogs_.ExpectMessage(u"Catalog name required"_qs, BoxStyle::Stop);
  dialogs_.ExpectMessage(u"The name 'Code' is not allowed for a value field."_qs, BoxStyle::Stop);
  Click(Next);
  Type(u"txtValue_0"_qs, {});
  paste(u"txtValue_0"_qs, u"Peso\n"_qs);
  Type(u"txtCatalogName"_qs, {});
  paste(u"txtCatalogName"_qs, u"Nome\r\nnuovo\n"_qs);
  Click(Next);
  paste(u"txtFilter_0"_qs, u"Colore\n"_qs);
  Click(Next);
  paste(u"txtCitta"_qs, u"Faenza\n"_qs);
  Click(Next);
  Click(Finish);
  EXPECT_EQ(
      One(u"NomeCatalogo||'|'||NomeValore1||'|'||NomeFiltro1||'|'||Citta"_qs, u"Cataloghi"_qs).toString(),
      u"Nome nuovo|Peso|Colore|Faenza"_qs);
}

TEST_F(Wizard, OffersTheCompanyOfTheMostRecentCatalog) {
  connection_.Execute(
      u"INSERT INTO Cataloghi (Azienda,Citta,CAP,URL,Extras,Logo) VALUES "
      u"('Lunari','Faenza','48018','x.example',"
      "'a'||char(10)||'b','/l.jpg')"_qs);
  Open();
  GoTo(3);
  EXPECT_EQ(Text(u"txtAzienda"_qs), u"Lunari"_qs);
  EXPECT_EQ(Text(u"txtCap"_qs), u"48018"_qs);
  EXPECT_EQ(Text(u"txtUrl"_qs), u"x.example"_qs);
  EXPECT_EQ(Text(u"txtTel"_qs), QString());
  EXPECT_EQ(Find<QPlainTextEdit>(u"txtExtras"_qs)->toPlainText(), u"a\nb"_qs);
  EXPECT_EQ(Text(u"txtLogo"_qs), QString()) << "the other catalog's logo is its own";

  // With a company there, coming back changes nothing.
  Type(u"txtAzienda"_qs, u"Altri"_qs);
  Type(u"txtCitta"_qs, {});
  ChooseLogo(Picture(u"l.jpg"_qs));
  Click(Back);
  Click(Next);
  EXPECT_EQ(Text(u"txtAzienda"_qs) + Text(u"txtCitta"_qs), u"Altri"_qs);
  EXPECT_EQ(Text(u"txtLogo"_qs), AppFile(u"l.jpg"_qs));

  // Without one it is offered again, but not over what was typed and chosen.
  Type(u"txtAzienda"_qs, {});
  Type(u"txtCap"_qs, u"00100"_qs);
  Click(Next);
  Click(Back);
  EXPECT_EQ(Text(u"txtAzienda"_qs) + Text(u"txtCitta"_qs) + Text(u"txtCap"_qs), u"LunariFaenza00100"_qs);
  EXPECT_EQ(Text(u"txtLogo"_qs), AppFile(u"l.jpg"_qs));
  Click(Next);
  Click(Finish);
  EXPECT_EQ(Count(u"Cataloghi"_qs), 2);
  const QString where = u"NomeCatalogo='Nome'"_qs;
  EXPECT_EQ(One(u"CAP||URL||Extras"_qs, u"Cataloghi"_qs, where).toString(), u"00100x.examplea\nb"_qs);
  EXPECT_EQ(One(u"Logo"_qs, u"Cataloghi"_qs, where).toString(), AppFile(u"Images/2-Logo.jpg"_qs));
}

TEST_F(Wizard, TakesALogoAndShowsIt) {
  Open();
  GoTo(3);
  Type(u"txtAzienda"_qs, u"a"_qs);
  const QString good = Picture(u"good.jpg"_qs);
  ChooseLogo(good);
  EXPECT_EQ(Text(u"txtLogo"_qs), good);
  ASSERT_EQ(Previews().size(), 1);
  EXPECT_EQ(Previews()[0]->Percorso, good);

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
  ASSERT_EQ(Previews().size(), 1) << "the preview of the former logo goes";
  EXPECT_EQ(Previews()[0]->Percorso, other);
  wizard_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(wizard_.get()));
  Find(u"txtLogo"_qs)->setFocus();
  QTest::keyClick(Find(u"txtLogo"_qs), Qt::Key_Delete);
  EXPECT_EQ(Text(u"txtLogo"_qs), QString());
  EXPECT_TRUE(Previews().isEmpty()) << "nothing is chosen any more";
  ChooseLogo(good);

  Click(Next);
  Click(Finish);
  EXPECT_TRUE(Previews().isEmpty());
  EXPECT_EQ(One(u"Logo"_qs, u"Cataloghi"_qs).toString(), AppFile(u"Images/1-Logo.jpg"_qs));
  EXPECT_EQ(One(u"Width||'x'||Height"_qs, u"Cataloghi"_qs).toString(), u"30x20"_qs);
  EXPECT_TRUE(QFile::exists(AppFile(u"Images/1-Logo.jpg"_qs)));
}

TEST_F(Wizard, AfterALogoThatCannotBeCopiedFinishGoesOnWithTheSameCatalog) {
  Open();
  GoTo(3);
  Type(u"txtFax"_qs, u"99"_qs);
  ChooseLogo(Picture(u"l.jpg"_qs));
  Click(Next);
  QDir(AppPath()).rmdir(u"Images"_qs);
  const QString target = AppFile(u"Images/1-Logo.jpg"_qs);
  dialogs_.ExpectMessage(
      u"Errore: The file "_qs + target + u" cannot be written: No such file or directory"_qs, BoxStyle::Stop);
  Click(Finish);
  EXPECT_EQ(Step(), 4);
  EXPECT_EQ(One(u"Logo"_qs, u"Cataloghi"_qs).toString(), AppFile(u"l.jpg"_qs));
  QDir(AppPath()).mkdir(u"Images"_qs);
  Click(Back);
  Type(u"txtFax"_qs, {});
  Click(Back);
  Click(Next);
  EXPECT_EQ(Text(u"txtFax"_qs), QString()) << "the row stored before is no other catalog";
  ChooseLogo(AppFile(u"l.jpg"_qs));
  Click(Next);
  Click(Finish);
  EXPECT_FALSE(wizard_->isVisible());
  EXPECT_TRUE(One(u"Fax"_qs, u"Cataloghi"_qs).isNull());
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
  EXPECT_EQ(One(u"Logo"_qs, u"Cataloghi"_qs).toString(), target);
}

TEST_F(Wizard, WithoutADatabaseItSaysSoAndKeepsWhatWasTyped) {
  Open();
  wizard_->ConnectionText = ConnectionTextFor(AppFile(u"gone.db"_qs));
  const QString reason = FailureOf([&] { Connection().Open(wizard_->ConnectionText); });
  ASSERT_FALSE(reason.isEmpty());
  dialogs_.ExpectMessage(u"Error: "_qs + reason, BoxStyle::Stop);
  GoTo(3);
  Type(u"txtAzienda"_qs, u"Lunari"_qs);
  Click(Next);
  dialogs_.ExpectMessage(u"Errore: "_qs + reason, BoxStyle::Stop);
  Click(Finish);
  EXPECT_EQ(Step(), 4);
  Click(Back);
  EXPECT_EQ(Text(u"txtAzienda"_qs), u"Lunari"_qs);
}

TEST_F(Wizard, ItsEndIsWhatWasChosen) {
  for (int choice = 0; choice < 3; ++choice) {
    Open();
    Type(u"txtCatalogDescription"_qs, QString(100, u'd'));
    GoTo(4);
    QSignalSpy edit(wizard_.get(), &frmNewCatalog::EditWanted);
    QSignalSpy another(wizard_.get(), &frmNewCatalog::AnotherWanted);
    QSignalSpy menu(wizard_.get(), &frmNewCatalog::MainMenuWanted);
    QSignalSpy cancelled(wizard_.get(), &frmNewCatalog::Cancelled);
    QTest::mouseClick(Find<QRadioButton>(u"optWizEnd_%1"_qs.arg(choice)), Qt::LeftButton, {}, {10, 8});
    Click(Finish);
    EXPECT_FALSE(wizard_->isVisible());
    EXPECT_EQ((QList<qsizetype>{edit.count(), another.count(), menu.count(), cancelled.count()}),
              (QList<qsizetype>{choice == 0, choice == 1, choice == 2, 0}));
    if (choice == 0) {
      EXPECT_EQ(edit[0][0].toInt(), One(u"Max(IDCatalogo)"_qs, u"Cataloghi"_qs).toInt());
      EXPECT_EQ(edit[0][1].toString(), u"Nome - dddddddddd..."_qs);
    }
  }
  EXPECT_EQ(Count(u"Cataloghi"_qs), 3);
}

TEST_F(Wizard, InAnotherLanguageItIsItalianAndRefusesInSilence) {
  Open(u"italian"_qs);
  EXPECT_EQ(Nav(Next)->text(), u"Avanti >>"_qs);
  Click(Next);
  EXPECT_EQ(Step(), 1);
  GoTo(2);
}

TEST_F(Wizard, HelpIsThereOnceSomebodyGivesIt) {
  SetLanguage(u"English"_qs);
  wizard_ = std::make_unique<frmNewCatalog>();
  QSignalSpy help(wizard_.get(), &frmNewCatalog::HelpWanted);
  wizard_->LoadForm();
  wizard_->show();
  Click(Help);
  ASSERT_EQ(help.count(), 1);
  EXPECT_EQ(help[0][0].toInt(), 1001);
}
