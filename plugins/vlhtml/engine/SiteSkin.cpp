#include "SiteSkin.h"

namespace vlhtml {

const SkinKind& SiteSkin() {
  static const SkinKind kind{
      QStringLiteral("VLHTML.HTML"),
      {QStringLiteral("home"), QStringLiteral("index"), QStringLiteral("filter"), QStringLiteral("product")},
      {},
      {QStringLiteral("style.css")},
      QStringLiteral("images(/.*)?|(index|products|products-\\d+|[pf]\\d?-.*)\\.html")};
  return kind;
}

}  // namespace vlhtml
