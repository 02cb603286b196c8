#include "PageData.h"

#include "HomePage.h"
#include "ListPages.h"
#include "ProductPage.h"
#include "SiteFields.h"

namespace vlhtml {

void TellPage(Fields& fields, const Site& site, const Page& page) {
  switch (page.kind) {
    case PageKind::Home:
      return TellHome(fields, site);
    case PageKind::Product:
      return TellProduct(fields, site, page.number);
    case PageKind::Values:
      return TellAllValues(fields, site, site.plan.groups[std::size_t(page.number)]);
    case PageKind::Message:
      return page.number == Page::NotFound ? TellNotFound(fields, site) : TellNotInPreview(fields, site);
    case PageKind::Index:
    case PageKind::Filter:
      return TellList(fields, site, *page.list, page.number);
  }
}

}  // namespace vlhtml
