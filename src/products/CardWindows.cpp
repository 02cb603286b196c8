#include "products/CardWindows.h"

#include <memory>

#include "products/ProductStore.h"
#include "products/frmFilterData.h"
#include "products/frmTechData.h"

namespace vorlina {
namespace {

template <class Window>
void BringToFront(Window& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

void CardWindows::OpenFilter(int IDCatalogo, int filter, const QString& name, Connection& connection) {
  QPointer<frmFilterData>& open = filters_[std::size_t(filter) - 1];
  if (open == nullptr) {
    auto window = std::make_unique<frmFilterData>(&card_);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->IDCatalogo = IDCatalogo;
    window->NumeroFiltro = QString::number(filter);
    window->NomeFiltro = name;
    window->Connessione = &connection;
    window->LoadForm();
    connect(window.get(), &frmFilterData::ValuesChanged, this, &CardWindows::ValuesChanged);
    connect(window.get(), &frmFilterData::FilterRenamed, this, &CardWindows::FilterRenamed);
    open = window.release();
  }
  BringToFront(*open);
}

void CardWindows::OpenTechData(const ProductKey& product, Connection& connection) {
  if (techData_ == nullptr) {
    auto window = std::make_unique<frmTechData>(&card_);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->IDCatalogo = product.IDCatalogo;
    window->CodiceProdotto = product.CodiceProdotto;
    window->Connessione = &connection;
    window->LoadForm();
    techData_ = window.release();
  }
  BringToFront(*techData_);
}

}  // namespace vorlina
