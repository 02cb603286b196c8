// Products' pictures in the grid: dropped files, and how they follow their product.
#include <QDialog>
#include <QFrame>

#include "GridWindowFixture.h"
#include "images/PictureFolder.h"
#include "products/ProductStore.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class GridPictures : public GridWindow {
 protected:
  QString Picture(const QString& name, unsigned seed = 1) const {
    WriteFileSafely(Outside(name), MakeJpeg(MakePhoto({80, 60}, seed)));
    return Outside(name);
  }
  // Gives a product a main picture and its thumbnail.
  QString GivePicture(const QString& code, int catalog) {
    QString path = MainImagePath(catalog, code);
    WriteFileSafely(path, MakeJpeg(MakePhoto({80, 60}, 1)));
    WriteFileSafely(ThumbnailPath(path), MakeJpeg(MakePhoto({40, 30}, 2)));
    connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE IDCatalogo=? AND CodiceProdotto=?"_qs,
                        {path, catalog, code});
    return path;
  }
  // A catalog's products, what belongs to them, and its files, without the catalog's own number.
  QStringList StateOf(int catalog) {
    QStringList state;
    for (const QString& sql :
         {u"CodiceProdotto,Descrizione,OrdineTemp,Pubblica,SchedaTecnica,Immagine) FROM Prodotti"_qs,
          u"'Immagini',CodiceProdotto) FROM Immagini"_qs,
          u"'SchedeTecniche',CodiceProdotto) FROM SchedeTecniche"_qs,
          u"CodiceProdotto,IDExtension,Valore) FROM PExtension"_qs}) {
      vorlina::Rows rows(connection_, u"SELECT json_array("_qs + sql + u" WHERE IDCatalogo=? ORDER BY 1"_qs,
                         {catalog});
      while (rows.Next()) state += rows.Value(0).toString().replace(CatalogPrefix(catalog), u"#-"_qs);
    }
    for (const auto& [name, content] : FilesIn(AppFile(u"Images"_qs)))
      if (name.contains(CatalogPrefix(catalog)))
        state += QString(name).replace(CatalogPrefix(catalog), u"#-"_qs) + QString::number(content.size());
    return state;
  }
};

}  // namespace

TEST_F(GridPictures, DroppedFilesBecomeTheMainAndAdditionalPictures) {
  const QString code = u"a'Neil 50% 🙂"_qs;
  AddProducts({code, u"b"_qs});
  Open();
  const QString second = Picture(u"L'altra 50%.JpEg"_qs, 2);
  QStringList files{Outside(u"0.jpg"_qs), Outside(u"1.jpg"_qs)};
  QStringList told;
  for (const QString& file : files) {
    WriteFileSafely(file, "no picture");
    told += u"The file %1 cannot be read: it is no JPEG picture"_qs.arg(file);
  }
  dialogs_.ExpectInput(u"Image description for "_qs + second, u"the \"other\" one"_qs);
  dialogs_.ExpectMessage(told.join(u"\r\n"_qs), BoxStyle::Stop);
  DropFiles(0, files + QStringList{Picture(u"a.JPG"_qs), second});
  EXPECT_EQ(QDir(AppFile(u"Images"_qs)).entryList(QDir::Files, QDir::Name).join(u' '),
            u"%1-%2.jpg 1.jpg t%1-%2.jpg"_qs.arg(catalog_).arg(code));
  EXPECT_EQ(One(u"Descrizione"_qs, u"Immagini"_qs, u"CodiceProdotto=?"_qs, {code}), u"the \"other\" one"_qs);
  EXPECT_FALSE(Rows().index(0, ProductColumn::ImmaginePicture).data(Qt::DecorationRole).isNull());
}

// Rows, files and marks are the same whether a product is worked in the grid or by a call.
TEST_F(GridPictures, TheGridLeavesWhatTheStoreLeaves) {
  const QString code = u"O'Neil 50% 🙂"_qs;
  const int other = AddCatalog(u"Other"_qs);
  for (const int catalog : {other, catalog_}) {
    for (const QString& product : {u"a"_qs, u"b"_qs}) {
      AddProduct(catalog, product, product == u"a" ? 1 : 2);
      GivePicture(product, catalog);
      for (const QString& table : {u"Immagini"_qs, u"SchedeTecniche"_qs})
        connection_.Execute(u"INSERT INTO "_qs + table + u" (IDCatalogo,CodiceProdotto) VALUES (?,?)"_qs,
                            {catalog, product});
    }
  }
  Open();
  Change(0, Code, code);
  EXPECT_EQ(Rows().Value(0, ProductColumn::Immagine), MainImagePath(catalog_, code))
      << "the new path is known";
  Change(2, Description, u"new"_qs);
  Select({2});
  dialogs_.ExpectQuestion(u"Do you want to delete selected products and their images?\r\nContinue?"_qs, true);
  Key(Qt::Key_Delete);
  ProductStore store(other, connection_);
  store.Change(store.Find(u"a"_qs), {{u"CodiceProdotto"_qs, code}}, ProductMarks::Both);
  store.Add({{u"Descrizione"_qs, u"new"_qs}, {u"OrdineTemp"_qs, 3}}, ProductMarks::Both);
  store.Delete({store.Find(u"b"_qs)});
  EXPECT_EQ(StateOf(catalog_), StateOf(other));
  EXPECT_EQ(StateOf(other).size(), 10) << StateOf(other).join(u"; "_qs);

  // Another letter case of the same code.
  Change(0, Code, u"o'neil 50% 🙂"_qs);
  EXPECT_TRUE(QFile::exists(Stored(u"o'neil 50% 🙂"_qs, u"Immagine"_qs)));
}

TEST_F(GridPictures, APressOnThePictureShowsItUntilThePointerLeaves) {
  AddProducts({u"a"_qs, u"b"_qs});
  QFile::remove(ThumbnailPath(GivePicture(u"a"_qs, catalog_)));
  Open();
  const auto* box = Find<QFrame>(u"picExt"_qs);
  const std::function<void()> ways[] = {[&] { Move(PointOf(0, Description)); }, [&] { Key(Qt::Key_Down); }};
  for (const auto& leave : ways) {
    Click(0, u"Immagine"_qs);
    EXPECT_TRUE(box->isVisible()) << "without a thumbnail the picture itself";
    leave();
    EXPECT_FALSE(box->isVisible());
  }
}

TEST_F(GridPictures, ADropOnADeletedProductIsTold) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='a'"_qs);
  const QStringList files{Picture(u"x.jpg"_qs)};
  dialogs_.ExpectMessage(u"The product was deleted meanwhile by another window or program."_qs,
                         BoxStyle::Stop);
  DropFiles(0, files);
  EXPECT_EQ(dialogs_.Left(), 0);
  DropFiles(0, files);
  EXPECT_EQ(Stored(u"b"_qs, u"Immagine"_qs), MainImagePath(catalog_, u"b"_qs));
}

TEST_F(GridPictures, ADropWaitsUntilABoxIsAnswered) {
  AddProducts({u"a"_qs});
  Open();
  QDialog box(window_);
  box.setObjectName(u"box"_qs);
  UnexpectedModalGuard::allowed = QStringList{box.objectName()};
  box.setModal(true);
  QObject::connect(grid_, &DataGrid::FilesDropped, &box, &QDialog::show);
  DropFiles(0, {Picture(u"x.jpg"_qs)});
  EXPECT_EQ(Stored(u"a"_qs, u"Immagine"_qs), QString());
  box.close();
  UnexpectedModalGuard::allowed.clear();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Stored(u"a"_qs, u"Immagine"_qs).isEmpty(); }));
}
