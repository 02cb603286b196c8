// What is delivered: the database that the build made, and the pictures that it copied.
#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

#include "base/AppPath.h"
#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "catalogs/CatalogCheck.h"
#include "images/PicturePaths.h"
#include "store/CatalogDatabase.h"
#include "support/Print.h"
#include "support/WritingConnection.h"

using namespace vorlina;

namespace {

// A copy of the database beside the delivered pictures: reading must not leave anything beside the original.
class Delivered : public testing::Test {
 protected:
  Delivered() {
    SetAppPath(folder_.path());
    QFile::link(QStringLiteral(VORLINA_DELIVERED "/Images"), AppFile(u"Images"_qs));
    CopyFileSafely(QStringLiteral(VORLINA_DELIVERED "/Catalog.db"), AppFile(u"Catalog.db"_qs));
    OpenCatalogDatabase(connection_, AppFile(u"Catalog.db"_qs));
    FitPicturePaths(connection_);
  }

  const QTemporaryDir folder_;
  WritingConnection connection_;
};

}  // namespace

TEST_F(Delivered, IsInOrderAndItsPicturesAreAsItsRowsSay) {
  for (const Finding& finding : CheckCatalogs(connection_))
    ADD_FAILURE() << NameOf(finding.kind) << ' ' << finding.subject;
  Rows rows(connection_,
            u"SELECT Immagine,Width,Height,1 FROM Prodotti UNION ALL SELECT Immagine,Width,Height,0 FROM "
            "Immagini UNION ALL SELECT Logo,Width,Height,2 FROM Cataloghi"_qs);
  int pictures = 0;
  for (; rows.Next(); ++pictures) {
    const QString path = rows.Value(0).toString();
    const QImage image(path, "jpeg");
    EXPECT_EQ(image.size(), QSize(rows.Value(1).toInt(), rows.Value(2).toInt())) << path;
    const int longer = std::max(image.width(), image.height());
    EXPECT_TRUE(rows.Value(3) == 2 || (longer >= 1200 && longer <= 1920)) << path;
    if (rows.Value(3) != 1) continue;
    // As the program makes them: reduced by whole per cents.
    const QImage thumbnail(AppFile(u"Images/t"_qs + FileNameOf(path, true)), "jpeg");
    EXPECT_NEAR(std::max(thumbnail.width(), thumbnail.height()), 200, longer / 200 + 1) << path;
    EXPECT_NEAR(thumbnail.width() * image.height(), thumbnail.height() * image.width(), image.width())
        << path;
  }
  EXPECT_GT(pictures, 100);
}
