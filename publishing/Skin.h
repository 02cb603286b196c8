// A skin: a folder of Mustache templates and a style sheet, from which the pages are made.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "PageProgram.h"

namespace publishing {

// What the skins of a plug-in are made of.
struct SkinKind {
  QString plugin;         // the plug-in's identifier
  QStringList pages;      // their kinds: "home" stands for "home.mustache". Any other template may be a part
  QStringList moreKinds;  // likewise, which a skin may leave out; they are counted on from those of pages
  QStringList files;      // that a skin must have besides, such as a style sheet
  QString taken;          // an expression for the names that the plug-in itself gives to files
};

class Skin {
 public:
  // A file that the site gets as it is.
  struct File {
    QString name;
    QByteArray hash;  // of its content
  };

  // Reads and checks a skin folder. Throws std::runtime_error that names the file and what is wrong: one that
  // is missing, or a template as LoadTemplate tells. italian is the language of the errors.
  Skin(const QString& folder, const SkinKind& kind, bool italian);

  // The names that its templates ask for, each known with the kinds of pages that do. A kind is told by its
  // place among the kinds.
  const FieldNames& Names() const { return names_; }
  std::size_t Kinds() const { return pages_.size(); }
  // Whether there is a template for pages of this kind.
  bool Has(std::size_t kind) const { return !pages_[kind].hash.isEmpty(); }
  // Digest of the template's text, with its parts, and of the program's version.
  const QByteArray& HashOf(std::size_t kind) const { return pages_[kind].hash; }
  // Writes a page, with what all pages show and its own. Throws std::runtime_error that names the file, for a
  // template that would write far more than a page.
  void Write(std::size_t kind, const FieldTree& site, const FieldTree& page, std::string& out) const;
  // All that the folder holds besides the templates, folders included; what is hidden is not. Read anew by
  // each call. Throws for a name that the site itself needs, or that not every web server takes.
  std::vector<File> StaticFiles() const;
  const QString& Folder() const { return folder_; }

 private:
  struct PageTemplate {
    QByteArray hash;
    PageProgram program;
  };
  void Load(const QString& name);
  std::string Read(const QString& name) const;
  [[noreturn]] void RefuseMissing(const QString& name) const;
  QByteArray HashOfFile(const QString& name) const;
  void CheckName(const QString& name) const;

  QString folder_;
  SkinKind kind_;
  bool italian_;
  FieldNames names_;
  std::vector<PageTemplate> pages_;
};

}  // namespace publishing
