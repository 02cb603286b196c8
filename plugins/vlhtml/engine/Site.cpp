#include "Site.h"

#include <QUrl>

#include "Contact.h"

namespace vlhtml {

const std::string& Site::Title() const { return Catalog().title.empty() ? Catalog().name : Catalog().title; }

const std::string& Site::Brand() const { return Catalog().company.empty() ? Title() : Catalog().company; }

std::string Site::Address() const {
  std::string address = SafeUrl(profile.address.toStdString());
  if (!address.empty() && address.back() != '/') address += '/';
  return address;
}

const std::string& Site::NotInPreview() const {
  static const std::string message = "preview.html", home = "index.html";
  return hasMessages ? message : home;
}

std::string Site::Root() const {
  return QUrl(QString::fromStdString(Address())).path(QUrl::FullyEncoded).toStdString();
}

std::string Site::Link(const QString& file) const {
  const auto shown = [&](int product) { return plan.products[std::size_t(product)].file == file; };
  if (plan.previewed < 0 || file == u"index.html" || shown(plan.previewed)) return file.toStdString();
  return NotInPreview();
}

const std::string& Site::Link(const PlannedList& list) const {
  return plan.previewed < 0 ? list.firstFile : NotInPreview();
}

}  // namespace vlhtml
