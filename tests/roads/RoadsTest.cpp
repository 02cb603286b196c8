// The roads of daily work from end to end, in each language: a catalog is begun, filled and published,
// through the windows alone, by the keyboard.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include "base/Settings.h"
#include "catalogs/frmCatalog.h"
#include "catalogs/frmNewCatalog.h"
#include "images/PictureFolder.h"
#include "products/WidgetProductGrid.h"
#include "products/frmEditCatalog.h"
#include "products/frmImages.h"
#include "products/frmProduct.h"
#include "publish/frmPublish.h"
#include "publish/frmPublished.h"
#include "shell/frmCatalogs.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

// What the boxes say, and how the site does.
struct Words {
  QString newValue;
  QString description;
  QString save;
  QString ready;
  QString language;  // as it begins
  QByteArray site;
};

const Words ItalianWords{u"Inserire il nuovo valore in tabella ?: Rosso"_qs,
                         u"Descrizione immagine"_qs,
                         u"Salvare le modifiche effettuate ?"_qs,
                         u"Pagine: "_qs,
                         u"It"_qs,
                         "<html lang=\"it\">"};
const Words EnglishWords{u"Do you want to insert a new item in the table?: Rosso"_qs,
                         u"Image description"_qs,
                         u"Do you want to save?"_qs,
                         u"Pages: "_qs,
                         u"En"_qs,
                         "<html lang=\"en\">"};

class Roads : public CatalogFixture, public testing::WithParamInterface<QString> {
 protected:
  Roads() : words_(GetParam() == u"Italian" ? ItalianWords : EnglishWords) {
    SetLanguage(GetParam());
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs);
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"VLHTML.HTML"_qs);
    EXPECT_TRUE(QFile::link(QStringLiteral(PUBWIZ), AppFile(u"PubWiz"_qs)));
    main_.LoadForm();
    main_.show();
    main_.activateWindow();
  }
  ~Roads() override { UnexpectedModalGuard::allowed.clear(); }

  // The window of that kind, once it is the one that is worked.
  template <class Window>
  Window* Come() const {
    const auto window = [] { return qobject_cast<Window*>(QApplication::activeWindow()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return window() != nullptr; })) << Window::staticMetaObject.className();
    return window();
  }
  template <class Window>
  void GoTo() const {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (qobject_cast<Window*>(window) != nullptr && window->isVisible()) window->activateWindow();
    Come<Window>();
  }
  // To whatever has the focus.
  static void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::activeWindow()->windowHandle(), Qt::Key(key), modifiers);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static void Type(const QString& text) {
    for (const QChar letter : text)
      QTest::keyClick(QApplication::activeWindow()->windowHandle(), letter.toLatin1());
  }
  QString Photo(const QString& name, unsigned seed, QSize size = {400, 300}) {
    WriteFileSafely(Outside(name), MakeJpeg(MakePhoto(size, seed)));
    return Outside(name);
  }
  WidgetProductGrid& Grid() const { return *main_.findChild<WidgetProductGrid*>(u"grdProducts"_qs); }

  void BeginCatalog();
  void AddProduct();
  void AddPictures();
  void ImportFolder();
  void SetProperties();
  void SetOrder();
  QString Publish(const QString& folder, const std::function<void()>& command);

  const Words& words_;
  ScriptedDialogs dialogs_;
  frmCatalogs main_;
};

// Four steps of the wizard, which ends in the catalog's grid.
void Roads::BeginCatalog() {
  Come<frmCatalogs>();
  Key(Qt::Key_N, Qt::ControlModifier);
  Come<frmNewCatalog>();
  for (const QString& text : {u"Ceramiche"_qs, u"Colore"_qs, u"Bottega"_qs, QString()}) {
    Type(text);
    Key(Qt::Key_Return);
  }
  EXPECT_EQ(Come<frmEditCatalog>()->windowTitle(), u"Ceramiche"_qs);
}

void Roads::AddProduct() {
  Key(Qt::Key_N, Qt::ControlModifier);
  const auto* card = Come<frmProduct>();
  card->findChild<QWidget*>(u"txtDescription"_qs)->setFocus();
  Type(u"Vaso alto"_qs);
  card->findChild<QWidget*>(u"cmbFilter_1"_qs)->setFocus();
  Type(u"Rosso"_qs);
  dialogs_.ExpectQuestion(words_.newValue, true);
  Key(Qt::Key_Tab);
  Key(Qt::Key_S, Qt::ControlModifier);
}

// The main picture, once one is chosen, and another one in the list beside its preview. All windows go with
// the card.
void Roads::AddPictures() {
  EXPECT_TRUE(Count(u"PExtension"_qs) == 0 && FilesIn(AppFile(u"Images"_qs)).empty());
  for (const QString& chosen : {QString(), Photo(u"vaso.jpg"_qs, 1, {1200, 600})}) {
    EXPECT_EQ(main_.findChild<frmImages*>(), nullptr);
    dialogs_.ExpectFile(chosen);
    Key(Qt::Key_I, Qt::ControlModifier);
  }
  GoTo<frmImages>();
  dialogs_.ExpectFiles({Photo(u"lato.jpg"_qs, 2)});
  dialogs_.ExpectInput(words_.description, u"Dal lato"_qs);
  Key(Qt::Key_N, Qt::ControlModifier);
  GoTo<frmProduct>();
  Key(Qt::Key_Escape);
  Come<frmEditCatalog>();
  EXPECT_EQ(main_.findChild<frmImages*>(), nullptr);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"PExtension"_qs, u"CodiceProdotto='1' AND Valore='1'"_qs), 2);
}

void Roads::ImportFolder() {
  QDir().mkpath(Outside(u"folder"_qs));
  Photo(u"folder/Tazza.jpg"_qs, 3);
  Photo(u"folder/Brocca d'acqua.jpg"_qs, 4);
  dialogs_.ExpectFolder(Outside(u"folder"_qs));
  Key(Qt::Key_I, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Grid().Rows().RecordCount() == 3; }));
}

// A value gets a name, and with it a column; the site gets a title.
void Roads::SetProperties() {
  Key(Qt::Key_Return, Qt::AltModifier);
  const auto* window = Come<frmCatalog>();
  window->findChild<QWidget*>(u"txtNomeValore1"_qs)->setFocus();
  Type(u"Prezzo"_qs);
  for (int tab = 0; tab < 3; ++tab) Key(Qt::Key_Tab, Qt::ControlModifier);
  window->findChild<QWidget*>(u"txtTitolo"_qs)->setFocus();
  Type(u"La bottega"_qs);
  dialogs_.ExpectQuestion(words_.save, true);
  Key(Qt::Key_Escape);
  Come<frmEditCatalog>();
  EXPECT_TRUE(Grid().GoTo(0, u"Prezzo"_qs));
  Type(u"12"_qs);
  Key(Qt::Key_Return);
}

// A product that is typed into the grid goes before the first one.
void Roads::SetOrder() {
  EXPECT_TRUE(Grid().GoTo(Grid().Rows().RecordCount(), u"Codice"_qs));
  Type(u"Z"_qs);
  Key(Qt::Key_Tab);
  Type(u"Piatto"_qs);
  Key(Qt::Key_Up);
  Key(Qt::Key_Down);
  // The first time numbers the imported ones, which have none yet, behind it.
  for (int time = 0; time < 4; ++time) Key(Qt::Key_PageUp, Qt::ControlModifier | Qt::ShiftModifier);
}

// Works the windows of publishing by the keyboard and gives the target that is offered; no folder leaves
// them. Only where no target is offered a folder is chosen, and the language with it.
QString Roads::Publish(const QString& folder, const std::function<void()>& command) {
  UnexpectedModalGuard::allowed = QStringList{u"frmPublish"_qs, u"frmPublished"_qs, u"WidgetProgressBox"_qs};
  QString offered;
  QString told;
  bool pressed = false;
  QTimer hands;
  QObject::connect(&hands, &QTimer::timeout, &hands, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isActiveWindow()) return;
    if (auto* published = qobject_cast<frmPublished*>(modal)) {
      told = published->findChild<QLabel*>(u"lblNumbers"_qs)->text();
      return Key(Qt::Key_Return);
    }
    auto* target = modal->findChild<QLineEdit*>(u"txtTarget"_qs);
    offered = target->text();
    if (folder.isEmpty() || std::exchange(pressed, true)) return Key(Qt::Key_Escape);
    if (offered.isEmpty()) {
      auto* languages = modal->findChild<QComboBox*>(u"cmbLanguage"_qs);
      languages->setFocus();
      Type(words_.language);
      QDir().mkpath(Outside(folder));
      dialogs_.ExpectFolder(Outside(folder));
    } else {
      target->setText(Outside(folder));
    }
    Key(Qt::Key_Return);
  });
  hands.start(5);
  command();
  EXPECT_EQ(told.startsWith(words_.ready), !folder.isEmpty()) << told;
  return offered;
}

}  // namespace

TEST_P(Roads, LeadFromAnEmptyDatabaseToAPublishedSite) {
  BeginCatalog();
  AddProduct();
  AddPictures();
  ImportFolder();
  SetProperties();
  SetOrder();
  EXPECT_EQ(Orders(1), u"Z1 14 25 36"_qs);
  EXPECT_EQ(One(u"json_array(Descrizione,Valore,Immagine,Width,Height)"_qs, u"Prodotti,Filtri"_qs,
                u"IDFiltro1=IDValore AND CodiceProdotto='1'"_qs),
            u"[\"Vaso alto\",\"Rosso\",\"%1\",804,402]"_qs.arg(MainImagePath(1, u"1"_qs)));
  EXPECT_EQ(One(u"Descrizione||CodiceProdotto"_qs, u"Immagini"_qs), u"Dal lato1"_qs);
  EXPECT_EQ(Findings().join(u' '), QString());

  const auto byGrid = [] {
    Key(Qt::Key_P, Qt::ControlModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Return);
  };
  EXPECT_EQ(Publish({}, byGrid), QString());
  EXPECT_EQ(Count(u"CExtension"_qs), 0);
  GoTo<frmEditCatalog>();
  EXPECT_EQ(Publish(u"l'uno"_qs, byGrid), QString());
  GoTo<frmEditCatalog>();
  QApplication::activeWindow()->close();
  GoTo<frmCatalogs>();
  const QString offered = Publish(u"l'altro"_qs, [] {
    Key(Qt::Key_P, Qt::ControlModifier);
    Key(Qt::Key_Return);
  });
  EXPECT_EQ(offered, Outside(u"l'uno"_qs));
  const auto site = FilesIn(Outside(u"l'altro"_qs));
  EXPECT_EQ(Differences(FilesIn(Outside(u"l'uno"_qs)), site).join(u' '), QString());
  const QByteArray product = site.at(u"p-1.html"_qs);
  for (const QByteArray& part :
       {words_.site, QByteArray("Vaso alto"), QByteArray("Rosso"), QByteArray("Dal lato"),
        QByteArray("<strong>12</strong>"), QByteArray("images/p-1_2_400w.jpg")})
    EXPECT_TRUE(product.contains(part)) << part.toStdString();
  EXPECT_TRUE(site.at(u"index.html"_qs).contains("La bottega"));
  const QByteArray& list = site.at(u"products.html"_qs);
  EXPECT_LT(list.indexOf("Piatto"), list.indexOf("Vaso alto"));
  EXPECT_TRUE(site.at(u"p-2.html"_qs).contains("Brocca d&apos;acqua"));
  EXPECT_TRUE(site.count(u"images/p-2_400w.jpg"_qs));
  EXPECT_TRUE(site.count(u"images/p-1_800w.jpg"_qs) && list.contains("images/p-1_400w.jpg"));
}

INSTANTIATE_TEST_SUITE_P(Languages, Roads, testing::Values(u"Italian"_qs, u"English"_qs),
                         [](const auto& language) { return language.param.toStdString(); });
