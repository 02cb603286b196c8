// The values of a filter, worked in their window.
#include "DataWindowHands.h"
#include "products/frmFilterData.h"
#include "support/Messages.h"

using namespace vorlina;

namespace {

const QString Value = QStringLiteral("Valore");

class FilterDataWindow : public DataWindow<frmFilterData> {
 protected:
  FilterDataWindow() {
    connection_.Execute(u"UPDATE Cataloghi SET NomeFiltro2='Colo\\046re'"_qs);
    connection_.Execute(
        u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (1,2,'rosso'),(1,2,'blu')"_qs);
    connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=1"_qs);
    Open();
    QObject::connect(form_.get(), &frmFilterData::ValuesChanged, [this](int filter) { changed_ += filter; });
    QObject::connect(form_.get(), &frmFilterData::FilterRenamed,
                     [this](int filter, const QString& name) { renamed_ += QString::number(filter) + name; });
  }
  void Prepare() override {
    form_->NumeroFiltro = u"2"_qs;
    form_->NomeFiltro = u"Colo.re"_qs;
  }
  QString Values() {
    return One(u"group_concat(Valore||Pubblica,' ')"_qs, u"(SELECT * FROM Filtri ORDER BY IDValore)"_qs)
        .toString();
  }
  QVariant StoredName() { return One(u"NomeFiltro2"_qs, u"Cataloghi"_qs); }
  QLineEdit& Name() const { return *form_->findChild<QLineEdit*>(u"txtFilterName"_qs); }
  void ClickName() const { Click(Name().mapTo(form_.get(), Name().rect().center())); }

  QList<int> changed_;
  QStringList renamed_;
};

}  // namespace

TEST_F(FilterDataWindow, ValuesAreTypedOneBelowTheOther) {
  Grid().GoTo(2, Value);
  Type(u" rosa "_qs);
  Key(Qt::Key_Return);
  Type(u"Verde"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Values(), u"rosso1 blu1 rosa1 Verde1"_qs);
  EXPECT_EQ(changed_, (QList<int>{2, 2}));
  Type(u"ROSSO"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Value \"ROSSO\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  EXPECT_FALSE(Close());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(form_->isVisible()) << "the row alone was given up";
  Key(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FilterDataWindow, WhatProductsHaveIsChangedAndDeletedAfterAQuestion) {
  const QString change =
      u"Products that have the value \"rosso\": 1.\r\nThey will show \"rosa\". Continue?"_qs;
  ASSERT_EQ(Shown(1, Value), u"rosso"_qs) << "by alphabet";
  Click(1, Value);
  Type(u"rosa"_qs);
  dialogs_.ExpectQuestion(change, false);
  Click(0, Value);
  EXPECT_EQ(Rows().EditRow(), 1) << "what was typed is kept";
  dialogs_.ExpectQuestion(change, true);
  ClickName();
  EXPECT_EQ(Values(), u"rosa1 blu1"_qs);
  EXPECT_TRUE(Name().hasFocus());

  const QString deletion =
      u"Products that have one of the selected values: 1.\r\nIf they are deleted they "
      "will be left without one. Continue?"_qs;
  Click(0, Value);
  Click(1, Value, Qt::ControlModifier);
  for (const bool answer : {false, true}) {
    EXPECT_EQ(Count(u"Filtri"_qs), 2);
    dialogs_.ExpectQuestion(deletion, answer);
    Key(Qt::Key_Delete);
  }
  EXPECT_EQ(Count(u"Filtri"_qs), 0);
  EXPECT_EQ(One(u"IDFiltro2"_qs, u"Prodotti"_qs), 0);
  EXPECT_EQ(changed_, (QList<int>{2, 2}));
}

TEST_F(FilterDataWindow, AKeyThatIsHeldDeletesOneValueAndNoneFromWithinAnEditor) {
  Key(Qt::Key_F2);
  for (const auto modifiers :
       {Qt::KeyboardModifiers(Qt::AltModifier), Qt::ControlModifier | Qt::ShiftModifier})
    Key(Qt::Key_Delete, modifiers);
  EXPECT_EQ(Count(u"Filtri"_qs), 2);
  Key(Qt::Key_Escape);
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=0"_qs);
  Key(Qt::Key_Delete);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, {}, {}, true);
  QCoreApplication::sendEvent(&Grid(), &held);
  EXPECT_EQ(Values(), u"rosso1"_qs);
}

// The box comes before whatever is done next, and not within the event that takes the focus away.
TEST_F(FilterDataWindow, AFilterIsNotLeftWithoutAName) {
  for (const auto& leave : {std::function<void()>([&] { Click(0, Value); }), {[&] { Key(Qt::Key_Tab); }}}) {
    ClickName();
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    Key(Qt::Key_Return);
    dialogs_.ExpectMessage(NumberedText(BaseConferma + 7), BoxStyle::Information);
    leave();
    EXPECT_TRUE(Name().hasFocus());
    EXPECT_EQ(Name().selectedText(), u"Colo.re"_qs);
  }
  Type(u"Tinta"_qs);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Name().text(), u"Colo.re"_qs) << "Escape gives the name up, and closes after that";
  Type(u"Tinta 5%"_qs);
  EXPECT_TRUE(Close());
  EXPECT_EQ(StoredName(), u"Tinta 5\\037"_qs);
  EXPECT_EQ(renamed_, QStringList{u"2Tinta 5%"_qs});
}

TEST_F(FilterDataWindow, ClosingWritesWhatIsTypedAndTellsWhatFails) {
  Grid().GoTo(2, Value);
  Type(u"giallo"_qs);
  Name().setText(u"Tinta"_qs);
  connection_.Execute(u"UPDATE Cataloghi SET NomeFiltro2='Altro'"_qs);
  dialogs_.ExpectMessage(u"Error: The filter was renamed meanwhile in another window."_qs, BoxStyle::Stop);
  EXPECT_TRUE(Close());
  EXPECT_EQ(Values(), u"rosso1 blu1 giallo1"_qs);
  EXPECT_EQ(StoredName(), u"Altro"_qs);
  EXPECT_EQ(renamed_, QStringList());
}
