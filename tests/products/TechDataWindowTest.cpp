// A product's technical data, worked in their window.
#include <QPlainTextEdit>
#include <QPushButton>

#include "DataWindowHands.h"
#include "products/frmAdvancedEdit.h"
#include "products/frmTechData.h"
#include "support/Messages.h"

using namespace vorlina;

namespace {

class TechDataWindow : public DataWindow<frmTechData> {
 protected:
  TechDataWindow() {
    connection_.Execute(u"UPDATE Prodotti SET SchedaTecnica=1"_qs);
    UnexpectedModalGuard::allowed = {u"frmAdvancedEdit"_qs};
  }
  ~TechDataWindow() override { UnexpectedModalGuard::allowed.clear(); }
  void Prepare() override { form_->CodiceProdotto = u"a"_qs; }
  void AddRow(const QString& feature, const QString& value) {
    connection_.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) VALUES (1,'a',?,?)"_qs,
        {feature, value});
  }
  QString Stored() {
    const QString row = u"CodiceProdotto||':'||Caratteristica||'='||ifnull(Valore,'-')"_qs;
    return One(u"group_concat("_qs + row + u",' ')"_qs, u"SchedeTecniche"_qs).toString();
  }
  // The marks that were set since the last call.
  QString Marks() {
    const QVariant names =
        One(u"group_concat(ExtensionName)"_qs, u"PExtension JOIN Extensions USING (IDExtension)"_qs);
    connection_.Execute(u"DELETE FROM PExtension"_qs);
    return names.toString();
  }
  bool HasSheet() { return One(u"SchedaTecnica"_qs, u"Prodotti"_qs).toBool(); }

  frmAdvancedEdit* LongEditor() const {
    auto* editor = form_->findChild<frmAdvancedEdit*>();
    return editor != nullptr && editor->isVisible() ? editor : nullptr;
  }
  void Write(const QString& text) const {
    auto* box = LongEditor()->findChild<QPlainTextEdit*>(u"txtFeatureValue"_qs);
    box->selectAll();
    for (const QChar letter : text) QTest::keyClick(box, letter == u'\n' ? '\r' : letter.toLatin1());
  }
  void OpenLongEditor() const {
    QTest::mouseDClick(form_->windowHandle(), Qt::LeftButton, {}, PointOf(0, FeatureValueColumn));
    ASSERT_NE(LongEditor(), nullptr);
  }
  void Press(const QString& button) const {
    QTest::mouseClick(LongEditor()->findChild<QPushButton*>(button), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
};

const QString SheetMark = QStringLiteral("SchedaModificata");

}  // namespace

TEST_F(TechDataWindow, AProductWithoutDataIsTypedIntoAtOnce) {
  Open();
  Type(u"Peso"_qs);
  Key(Qt::Key_Tab);
  Type(u"2 kg"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored() + Marks(), u"a:Peso=2 kg"_qs + SheetMark);
  EXPECT_EQ(Grid().CurrentKey(), FeatureColumn) << "ready for the next one";
  // The product gets another code meanwhile; what is being typed is written when the window closes.
  connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto='b'"_qs);
  Type(u"Altezza"_qs);
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(), u"b:Peso=2 kg b:Altezza=-"_qs);
  EXPECT_TRUE(HasSheet());
}

TEST_F(TechDataWindow, TheLastRowTakesTheSheetAlong) {
  AddRow(u"Peso"_qs, u"2 kg"_qs);
  Open();
  for (const bool answer : {false, true}) {
    EXPECT_EQ(Rows().RecordCount(), 1);
    dialogs_.ExpectQuestion(u"Delete the selected features?"_qs, answer);
    Key(Qt::Key_Delete);
  }
  EXPECT_EQ(Stored() + Marks(), SheetMark);
  EXPECT_TRUE(HasSheet()) << "until it is closed";
  EXPECT_TRUE(Close());
  EXPECT_FALSE(HasSheet());
}

TEST_F(TechDataWindow, ARowThatIsRefusedStaysInEdit) {
  AddRow(u"Peso"_qs, u"1"_qs);
  Open();
  const QString longFeature(51, u'x');
  const QString length = u"\"Feature\" field can't contain more than 50 characters."_qs;
  Type(longFeature);
  dialogs_.ExpectMessage(length, BoxStyle::Stop);
  Key(Qt::Key_Down);
  EXPECT_EQ(Rows().EditRow(), 0);
  EXPECT_EQ(Shown(0, FeatureColumn), longFeature);
  Key(Qt::Key_Right);
  Type(u"1|2"_qs);
  dialogs_.ExpectMessage(u"| is an invalid character"_qs, BoxStyle::Stop);
  dialogs_.ExpectMessage(length, BoxStyle::Stop);
  Click(1, FeatureColumn);
  EXPECT_EQ(Rows().EditRow(), 0);
  EXPECT_EQ(Grid().CurrentKey(), FeatureValueColumn) << "where the first one is mended";
  Key(Qt::Key_Escape);
  EXPECT_EQ(Stored() + Marks(), u"a:Peso=1"_qs);
  Grid().GoTo(0, FeatureColumn);
  Type(u"a|b"_qs);
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(), u"a:a|b=1"_qs) << "a feature may";
}

TEST_F(TechDataWindow, AFeatureIsCompletedAsItIsTyped) {
  AddRow(u"L'altezza"_qs, u"1"_qs);
  Open();
  Grid().GoTo(1, FeatureColumn);
  Type(u"l"_qs);
  EXPECT_EQ(Typed() + u' ' + Editor()->selectedText(), u"L'altezza 'altezza"_qs);
  Type(u"'a"_qs);
  EXPECT_EQ(Editor()->selectedText(), u"ltezza"_qs);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Typed(), u"L'a"_qs) << "what is taken away does not come back";
  Key(Qt::Key_Left);
  Type(u"x"_qs);
  EXPECT_EQ(Typed(), u"L'xa"_qs) << "nothing is written over what stands behind";
  Key(Qt::Key_Backspace);
  Key(Qt::Key_End);
  Type(u"l"_qs);
  Key(Qt::Key_Tab);
  Type(u"l"_qs);
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(), u"a:L'altezza=1 a:L'altezza=l"_qs) << "a value is not";
}

TEST_F(TechDataWindow, TheLongEditorTakesOverWhatIsConfirmed) {
  AddRow(u"Peso"_qs, u"1\r\n2"_qs);
  Open();
  Key(Qt::Key_Return);
  ASSERT_NE(LongEditor(), nullptr);
  EXPECT_FALSE(Close()) << "what is typed there would be lost";
  Write(u"a|b"_qs);
  dialogs_.ExpectMessage(u"| is an invalid character"_qs, BoxStyle::Stop);
  Press(u"cmdOK"_qs);
  ASSERT_NE(LongEditor(), nullptr) << "with what was typed";
  EXPECT_EQ(Rows().EditRow(), -1);
  Write(u"3\n4"_qs);
  Press(u"cmdOK"_qs);
  EXPECT_EQ(LongEditor(), nullptr);
  EXPECT_EQ(Stored() + Marks(), u"a:Peso=3\n4"_qs + SheetMark);

  // What was not confirmed is written back as it was, and the row counts as changed.
  OpenLongEditor();
  Write(u"5"_qs);
  dialogs_.ExpectQuestion(NumberedText(BaseConferma + 4), false);
  QTest::keyClick(LongEditor()->focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(Stored() + Marks(), u"a:Peso=3\n4"_qs + SheetMark);
}

TEST_F(TechDataWindow, TheLongEditorWritesOverNothingThatItDidNotShow) {
  AddRow(u"Peso"_qs, u"1"_qs);
  Open();
  const auto typeFeature = [&] {
    QTest::keyClick(LongEditor()->findChild<QLineEdit*>(u"txtFeature"_qs), 'x');
  };
  OpenLongEditor();
  connection_.Execute(u"UPDATE SchedeTecniche SET Valore='theirs'"_qs);
  typeFeature();
  Press(u"cmdOK"_qs);
  EXPECT_EQ(Stored() + Marks(), u"a:Pesox=theirs"_qs + SheetMark);
  OpenLongEditor();
  connection_.Execute(u"UPDATE SchedeTecniche SET Caratteristica='A',Valore='B'"_qs);
  typeFeature();
  Write(u"mine"_qs);
  for (int i = 0; i < 2; ++i) {
    dialogs_.ExpectMessage(u"The row was changed meanwhile by another window or program."_qs, BoxStyle::Stop);
    Press(u"cmdOK"_qs);
    ASSERT_NE(LongEditor(), nullptr);
  }
  Press(u"cmdCancel"_qs);
  EXPECT_EQ(Stored(), u"a:A=B"_qs);
}

TEST_F(TechDataWindow, PlaceAndLayoutAreFoundAgain) {
  Open();
  form_->resize(700, 300);
  Grid().SetColumnPosition(FeatureValueColumn, 0);
  EXPECT_TRUE(Close());
  Open();
  EXPECT_EQ(form_->size(), QSize(700, 300));
  EXPECT_EQ(Grid().horizontalHeader()->visualIndex(Rows().ColumnOf(FeatureValueColumn)), 0);
}
