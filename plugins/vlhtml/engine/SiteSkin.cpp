#include "SiteSkin.h"

namespace vlhtml {

const SkinKind& SiteSkin() {
  static const SkinKind kind{
      QStringLiteral("VLHTML.HTML"),
      {QStringLiteral("home"), QStringLiteral("index"), QStringLiteral("filter"), QStringLiteral("product")},
      {QStringLiteral("values"), QStringLiteral("message")},
      {QStringLiteral("style.css")},
      QStringLiteral("images(/.*)?|(index|products|products-\\d+|preview|f\\d(-.*)?|p-.*)\\.html|theme\\.css|"
                     "search-index\\.js")};
  return kind;
}

}  // namespace vlhtml
