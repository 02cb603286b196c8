// The windows that the product card opens for the values of a filter and for a product's technical data. They
// belong to the card's window, and close with it.
#pragma once

#include <QObject>
#include <QPointer>
#include <array>

namespace vorlina {

class Connection;
class frmFilterData;
class frmTechData;
struct ProductKey;

class CardWindows : public QObject {
  Q_OBJECT

 public:
  explicit CardWindows(QWidget& card) : QObject(&card), card_(card) {}

  // Of a filter, 1 to 5, with its name as it is shown. One that is open comes to the front. Throws Error.
  void OpenFilter(int IDCatalogo, int filter, const QString& name, Connection& connection);
  // Of a product. As above.
  void OpenTechData(const ProductKey& product, Connection& connection);

 Q_SIGNALS:
  // As those of frmFilterData.
  void ValuesChanged(int filter);
  void FilterRenamed(int filter, const QString& name);

 private:
  QWidget& card_;
  std::array<QPointer<frmFilterData>, 5> filters_;
  QPointer<frmTechData> techData_;
};

}  // namespace vorlina
