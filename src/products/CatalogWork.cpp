#include "products/CatalogWork.h"

#include <algorithm>
#include <vector>

#include "base/Error.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

std::vector<const CatalogWork*> atWork;

}  // namespace

CatalogWork::CatalogWork(int IDCatalogo, Kind kind) : IDCatalogo_(IDCatalogo), kind_(kind) {
  atWork.push_back(this);
}

CatalogWork::~CatalogWork() { std::erase(atWork, this); }

void CatalogWork::RequireNone(int IDCatalogo) {
  const auto work = std::find_if(atWork.begin(), atWork.end(),
                                 [=](const CatalogWork* one) { return one->IDCatalogo_ == IDCatalogo; });
  if (work == atWork.end()) return;
  throw Error((*work)->kind_ == Kind::Import
                  ? Texts::tr("In questo catalogo si stanno importando immagini. Attendere la fine "
                              "dell'importazione, oppure annullarla.")
                  : Texts::tr("Il catalogo è in corso di pubblicazione. Attenderne la fine."));
}

void CatalogWork::RequireNone() {
  if (atWork.empty()) return;
  throw Error(atWork.front()->kind_ == Kind::Import
                  ? Texts::tr("Si stanno importando immagini in un catalogo. Attendere la fine "
                              "dell'importazione, oppure annullarla.")
                  : Texts::tr("È in corso la pubblicazione di un catalogo. Attenderne la fine."));
}

}  // namespace vorlina
