#include "Site.h"

#include "Contact.h"

namespace vlhtml {

const std::string& Site::Title() const { return Catalog().title.empty() ? Catalog().name : Catalog().title; }

const std::string& Site::Brand() const { return Catalog().company.empty() ? Title() : Catalog().company; }

std::string Site::Address() const {
  std::string address = SafeUrl(profile.address.toStdString());
  if (!address.empty() && address.back() != '/') address += '/';
  return address;
}

std::string Site::Link(const QString& file) const {
  const auto shown = [&](int product) { return plan.products[std::size_t(product)].file == file; };
  if (plan.previewed < 0 || file == u"index.html" || shown(plan.previewed)) return file.toStdString();
  return hasMessages ? "preview.html" : "index.html";
}

}  // namespace vlhtml
