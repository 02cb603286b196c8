// A skin: a folder of Mustache templates and a style sheet, from which the pages are made.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

#include "Fields.h"
#include "Template.h"

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
  struct PageTemplate {
    std::set<std::string, std::less<>> names;  // what a page of the kind can show
    QByteArray hash;                           // of its text and of the program's version
  };
  // A file that the site gets as it is.
  struct File {
    QString name;
    QByteArray hash;  // of its content
  };

  // Reads and checks a skin folder. Throws std::runtime_error that names the file and what is wrong: one that
  // is missing, or a template as LoadTemplate tells. italian is the language of the errors.
  Skin(const QString& folder, const SkinKind& kind, bool italian);

  // Renders a page with what the site and the page have. A page's kind is told by its place among the kinds.
  // One thread at a time: each has a Skin of its own.
  std::string Render(std::size_t page, const Data& site, const Data& data);
  const PageTemplate& Of(std::size_t page) const { return pages_[page].page; }
  // Whether there is a template for pages of this kind.
  bool Has(std::size_t page) const { return pages_[page].text != nullptr; }
  // All that the folder holds besides the templates, folders included; what is hidden is not. Read anew by
  // each call. Throws for a name that the site itself needs, or that not every web server takes.
  std::vector<File> StaticFiles() const;
  const QString& Folder() const { return folder_; }

 private:
  struct Parsed {
    PageTemplate page;
    std::unique_ptr<kainjow::mustache::mustache> text;
  };
  Parsed Load(const QString& name) const;
  std::string Read(const QString& name) const;
  [[noreturn]] void RefuseMissing(const QString& name) const;
  QByteArray HashOf(const QString& name) const;
  void CheckName(const QString& name) const;

  QString folder_;
  SkinKind kind_;
  bool italian_;
  std::vector<Parsed> pages_;
};

}  // namespace publishing
