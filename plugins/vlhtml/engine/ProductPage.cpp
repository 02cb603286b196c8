#include "ProductPage.h"

#include "Contact.h"
#include "Fingerprint.h"
#include "Head.h"
#include "PageParts.h"
#include "StructuredData.h"

namespace vlhtml {
namespace {

// The product in a few words: what it costs, what it is, and what it has.
std::string Summary(const Site& site, const PlannedProduct& planned) {
  constexpr std::size_t Enough = 200;
  const Product& told = *planned.product;
  std::string summary = planned.price.empty() ? std::string() : planned.price + " – ";
  summary += told.description.empty() ? told.code.toStdString() : told.description;
  const auto add = [&](const std::string& name, const std::string& value) {
    if (summary.size() < Enough && !value.empty()) summary += " · " + name + ": " + value;
  };
  for (std::size_t i = 0; i < told.filters.size(); ++i)
    if (const auto found = site.plan.filterList.constFind(told.filters[i]);
        found != site.plan.filterList.constEnd())
      add(site.Catalog().filterNames[i], site.plan.filters[std::size_t(*found)].text);
  for (const auto& feature : told.features) add(feature.name, feature.value);
  return summary;
}

void TellProductHead(Fields& fields, const Site& site, int product, const PlannedList* parent) {
  const PlannedProduct& planned = site.plan.products[std::size_t(product)];
  const Product& told = *planned.product;
  const std::string code = told.code.toStdString();
  Head head;
  head.title = PageTitle(told.name, {code == told.name ? std::string() : code, CompanyInTitle(site.Brand())});
  head.shared = told.name;
  head.description = Summary(site, planned);
  head.file = planned.file;
  head.type = "product";
  if (const auto& pictures = site.pictures.Of(std::size_t(product)); !pictures.empty())
    head.picture = &pictures.front();
  if (head.picture != nullptr)
    head.pictured = head.picture->picture->caption.empty() ? told.name : head.picture->picture->caption;
  head.data.append(ProductData(site, product));
  std::vector<std::pair<std::string, QString>> steps{
      {site.words.Text("home"), QStringLiteral("index.html")},
      {site.words.Text("products"), site.plan.all.PageFile(1)}};
  if (parent != nullptr) steps.emplace_back(parent->text, parent->PageFile(1));
  steps.emplace_back(told.name, planned.file);
  if (const QJsonObject path = PathData(site, steps); !path.isEmpty()) head.data.append(path);
  TellHead(fields, site, head);
}

// All that the head and the subject of a question are made from: they take longer than the rest of the page.
std::uint64_t HeadFrom(const Site& site, int product, const PlannedList* parent) {
  const PlannedProduct& planned = site.plan.products[std::size_t(product)];
  const Product& told = *planned.product;
  FingerprintOfMany from;
  from.Add(site.once.headsFrom);
  from.Add(told.code);
  from.Add(told.name);
  from.Add(told.description);
  from.Add(told.price);
  if (!told.price.empty()) from.Add(site.Catalog().valueNames[std::size_t(site.Catalog().price) - 1]);
  from.Add(planned.file);
  if (parent != nullptr) from.Add(parent->firstFile);
  for (std::size_t i = 0; i < told.filters.size(); ++i)
    if (const auto found = site.plan.filterList.constFind(told.filters[i]);
        found != site.plan.filterList.constEnd()) {
      from.Add(site.Catalog().filterNames[i]);
      from.Add(site.plan.filters[std::size_t(*found)].text);
    }
  for (const Feature& feature : told.features) {
    from.Add(feature.name);
    from.Add(feature.value);
  }
  for (const PublishedPicture& picture : site.pictures.Of(std::size_t(product))) {
    AddPicture(picture, from);
    from.Add(picture.picture->caption);
  }
  return from.Value();
}

void TellGallery(Fields& fields, const Site& site, int product) {
  const std::vector<PublishedPicture>& pictures = site.pictures.Of(std::size_t(product));
  const std::string& name = site.plan.products[std::size_t(product)].product->name;
  const std::size_t count = pictures.size();
  fields.Flag("several", count > 1);
  fields.GroupIf(count > 0, "gallery", [&](Fields& gallery) {
    gallery.List("pictures", count, [&](Fields& picture, std::size_t i) {
      const std::string& caption = pictures[i].picture->caption;
      TellPicture(picture, pictures[i]);
      picture.Text("number", std::to_string(i + 1));
      picture.Text("label", site.words.Text("pictureOf", {{"n", site.words.Number(int(i) + 1)},
                                                          {"total", site.words.Number(int(count))}}));
      picture.Text("alt", caption.empty() ? name : caption);
      picture.TextIf("caption", caption == name ? std::string() : caption);
      picture.Flag("first", i == 0);
      picture.TextIf("before", i == 0 ? std::string() : std::to_string(i));
      picture.TextIf("after", i + 1 == count ? std::string() : std::to_string(i + 2));
    });
  });
}

// How a reader asks about the product: nothing where the catalog names no way.
void TellAsk(Fields& fields, const Site& site, const Product& product, std::uint64_t from) {
  fields.GroupIf(!site.once.mail.empty() || !site.once.call.empty(), "ask", [&](Fields& ask) {
    ask.TextIf("call", site.once.call);
    ask.Later(from, [&site, &product](Fields& later) {
      const std::string code = product.code.toStdString();
      const std::string subject =
          code == product.name
              ? site.words.Text("askSubjectCode", {{"code", code}})
              : site.words.Text("askSubject", {{"name", Excerpt(product.name)}, {"code", code}});
      later.TextIf("mail", site.once.mail.empty() ? std::string() : MailLink(site.once.mail, subject));
    });
  });
}

// The values and filter values that the product has; one with a page of its own leads there.
void TellDetails(Fields& fields, const Site& site, const Product& product) {
  struct Detail {
    std::string_view name, value, file;
  };
  const CatalogSnapshot& catalog = site.Catalog();
  std::vector<Detail> details;
  for (std::size_t i = 0; i < 3; ++i)
    if (!product.values[i].empty() && int(i) + 1 != catalog.price)
      details.push_back({catalog.valueNames[i], product.values[i], {}});
  for (std::size_t i = 0; i < 5; ++i)
    if (const auto found = site.plan.filterList.constFind(product.filters[i]);
        found != site.plan.filterList.constEnd()) {
      const PlannedList& list = site.plan.filters[std::size_t(*found)];
      details.push_back({catalog.filterNames[i], list.text, site.Link(list)});
    }
  fields.List("details", details.size(), [&](Fields& detail, std::size_t i) {
    detail.Text("name", details[i].name);
    detail.Text("value", details[i].value);
    detail.TextIf("file", details[i].file);
  });
  fields.GroupIf(!product.features.empty(), "techData", [&](Fields& data) {
    data.List("features", product.features.size(), [&](Fields& feature, std::size_t i) {
      feature.Text("name", product.features[i].name);
      feature.Text("value", product.features[i].value);
    });
  });
}

void TellOthers(Fields& fields, const Site& site, int product, const PlannedList* parent) {
  const std::vector<int> sisters = site.plan.SistersOf(product);
  fields.GroupIf(!sisters.empty(), "sister", [&](Fields& group) {
    TellSisterHead(group, site, *parent);
    TellCards(group, site, sisters, 0);
  });
  const int count = int(site.plan.products.size());
  const auto tellName = [&](int other) {
    return [&site, other](Fields& link) {
      const PlannedProduct& planned = site.plan.products[std::size_t(other)];
      link.Text("file", site.Link(planned.file));
      link.Text("name", planned.product->name);
    };
  };
  fields.Flag("between", count > 1);
  fields.GroupIf(product > 0, "previous", tellName(product - 1));
  fields.GroupIf(product + 1 < count, "next", tellName(product + 1));
}

}  // namespace

void TellProduct(Fields& fields, const Site& site, int product) {
  const PlannedProduct& planned = site.plan.products[std::size_t(product)];
  const Product& told = *planned.product;
  const PlannedList* parent = site.plan.FirstList(product);
  const std::uint64_t from = HeadFrom(site, product, parent);
  fields.Later(from,
               [&site, product, parent](Fields& later) { TellProductHead(later, site, product, parent); });
  fields.Text("heading", told.name);
  fields.Text("code", told.code.toStdString());
  fields.GroupIf(parent != nullptr, "parent", [&](Fields& link) {
    link.Text("text", parent->text);
    link.Text("file", site.Link(*parent));
  });
  TellGallery(fields, site, product);
  TellPrice(fields, site, planned);
  TellAsk(fields, site, told, from);
  fields.List("paragraphs", told.paragraphs.size(),
              [&](Fields& paragraph, std::size_t i) { paragraph.Text("text", told.paragraphs[i]); });
  TellDetails(fields, site, told);
  TellOthers(fields, site, product, parent);
}

}  // namespace vlhtml
