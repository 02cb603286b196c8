// A skin: a folder of Mustache templates and a style sheet, from which the pages are made.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "Fields.h"
#include "Template.h"

namespace publishing {

enum class PageKind { Home, Index, Filter, Product };
inline constexpr std::size_t PageKinds = 4;

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
  Skin(const QString& folder, bool italian);

  // Renders a page with what the site and the page have. One thread at a time: each has a Skin of its own.
  std::string Render(PageKind kind, const Data& site, const Data& data);
  const PageTemplate& Of(PageKind kind) const { return pages_[std::size_t(kind)].page; }
  // All that the folder holds besides the templates, folders included; what is hidden is not. Read anew by
  // each call. Throws for a name that the site itself needs, or that not every web server takes.
  std::vector<File> StaticFiles() const;
  const QString& Folder() const { return folder_; }

  // What a folder must hold to be a skin.
  static QStringList NeededFiles();

 private:
  struct Parsed {
    PageTemplate page;
    std::unique_ptr<kainjow::mustache::mustache> text;
  };
  Parsed Load(const QString& name) const;
  std::string Read(const QString& name) const;
  QByteArray HashOf(const QString& name) const;
  void CheckName(const QString& name) const;

  QString folder_;
  bool italian_;
  std::array<Parsed, PageKinds> pages_;
};

}  // namespace publishing
