// What a publishing plug-in is asked to make, and what it tells when it is done.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <array>

// The same catalog in another language, published elsewhere.
struct VorlinaSister {
  QString language;  // "it", "en", "de", "fr" or "es"
  QString address;   // of its first page, with http or https

  bool operator==(const VorlinaSister&) const = default;
};

// How the user wants a catalog published. Each catalog has one at least; it is kept with the catalog. An
// empty text is one that was not chosen.
struct VorlinaProfile {
  // Which value is the price: the one whose name says so, none, or the value of that number.
  static constexpr int PriceByName = 0;
  static constexpr int NoPrice = -1;

  QString identifier;  // stays when the name changes
  QString name;        // such as "Dealers, with prices"
  QString language;    // the catalog's: "it", "en", "de", "fr" or "es"
  QString address;     // where a reader finds the first page, ending in "/"
  QString accent;      // a colour, "#rrggbb"; empty: the skin's own
  QString font;        // "sans", "serif" or "mono"; empty: the skin's own
  bool showLogo = true;
  QString logo;                          // full path of a JPEG file; empty: the catalog's
  QString widePicture;                   // the same of the first page's; empty: the first highlight's
  QList<int> pictureSizes = {400, 800};  // longer sides in pixels, ascending
  std::array<bool, 3> values = {true, true, true};  // which of them show
  std::array<bool, 5> filters = {true, true, true, true, true};
  bool techData = true;
  int price = PriceByName;  // PriceByName, NoPrice, 1, 2 or 3
  QStringList highlights;   // codes of products, in the order of publication
  QString hours;            // when the company is there, in lines
  QString mapLink;          // an address with http or https
  QList<VorlinaSister> sisters;

  bool operator==(const VorlinaProfile&) const = default;
};

// One publication.
struct VorlinaJob {
  int IDCatalogo = 0;
  QString target;  // full path of the folder, or of the file, that is made
  VorlinaProfile profile;
  QVariantMap options;  // what the plug-in's own options were set to, by their keys
  // Only the first page and one product, in a folder of its own, to be looked at before anything is
  // published.
  bool preview = false;
};

// Something that the user should know of a publication.
struct VorlinaNote {
  enum class Kind { NoPicture, NoDescription, DoubleOrder, Picture, Other };
  Kind kind = Kind::Other;
  QString product;  // its code; "" where it is of no product
  QString text;     // a sentence, in the program's language, without the code
};

// What came of a publication.
struct VorlinaReport {
  bool complete = false;  // false: stopped, or a question was answered with No; the target is as it was
  int pages = 0;
  int pictures = 0;
  qint64 bytes = 0;                         // of all files
  int added = 0, changed = 0, removed = 0;  // files, against what was published there before
  QList<VorlinaNote> notes;
  QStringList open;  // full paths of files to be opened: of the first page; a preview's product as well
};

// A question that a plug-in adds to the window that asks how to publish.
struct VorlinaOption {
  QString key;
  QString caption;      // with "&" before the letter of its key
  QStringList choices;  // of which one is taken; empty: a yes or no
  QVariant value;       // the number of the choice, or a bool, where the profile has none
};

// What publishing makes.
struct VorlinaTarget {
  bool isFile = false;  // false: a folder
  QString suffix;       // of a file, without the point
  QString filter;       // of a file, for the chooser: "Documents (*.docx)"
};

// One size of a picture, made for readers.
struct VorlinaWebPicture {
  QSize size;    // in pixels
  QString jpeg;  // full path of the file
  QString webp;  // the same picture smaller; empty where it would not be by a quarter
};

struct VorlinaWebPictures {
  QString fault;                      // why there are none, in the program's language; else empty
  QSize size;                         // of the original, upright
  QByteArray stamp;                   // changes when one of the files does
  QList<VorlinaWebPicture> pictures;  // ascending, none larger than the original
  // The original where it is larger than all of them, as JPEG alone: the file itself, or a copy without what
  // the camera wrote beside the picture. Without a path where it is not larger.
  VorlinaWebPicture full = {};
};
