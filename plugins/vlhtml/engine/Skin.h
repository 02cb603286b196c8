// A skin: a folder of Mustache templates and a style sheet, from which the pages are made.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>
#include <string>

#include <kainjow/mustache.hpp>

namespace vlhtml {

using Data = kainjow::mustache::data;

class Skin {
 public:
  // Reads and checks a skin folder. Throws std::runtime_error that names the file and what is wrong: a
  // template that is missing or broken, or one that writes unescaped text ("{{{", "{{&") or changes the
  // delimiters.
  Skin(const QString& folder, bool italian);

  // Renders one of the templates "home", "index", "filter" and "product" with what the site and the page
  // have. One thread at a time: each has a Skin of its own.
  std::string Render(const char* page, const Data& site, const Data& data);
  // The files that a site gets as they are: style.css and what lies in "assets".
  const QStringList& StaticFiles() const { return files_; }
  const QString& Folder() const { return folder_; }
  // Changes when anything of the skin changes.
  const QByteArray& Hash() const { return hash_; }

  // What a folder must hold to be a skin.
  static QStringList NeededFiles();

 private:
  using Template = kainjow::mustache::mustache;
  std::string Read(const QString& name);
  std::unique_ptr<Template> Load(const QString& name);

  QString folder_;
  bool italian_;
  QStringList files_;
  QByteArray hash_;
  std::unique_ptr<Template> home_, index_, filter_, product_;
};

}  // namespace vlhtml
