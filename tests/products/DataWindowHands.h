// A window with a grid called grdScheda over a product's data, worked by keys and the mouse.
#pragma once

#include <memory>

#include "grid/GridHands.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"
#include "support/ScriptedDialogs.h"

namespace vorlina {

template <class Form>
class DataWindow : public CatalogFixture, public GridHands {
 protected:
  DataWindow() : catalog_(AddCatalog(u"Catalog"_qs)) { AddProduct(catalog_, u"a"_qs); }

  void Open() {
    form_ = std::make_unique<Form>();
    form_->IDCatalogo = catalog_;
    form_->Connessione = &connection_;
    Prepare();
    form_->LoadForm();
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  virtual void Prepare() = 0;
  // Types into whatever has the focus.
  void Type(const QString& text) const {
    for (const QChar letter : text) QTest::keyClick(form_->windowHandle(), letter.toLatin1());
    QCoreApplication::processEvents();
  }
  bool Close() {
    const bool closed = form_->close();
    QCoreApplication::processEvents();
    return closed;
  }

  QWidget& Window() const override { return *form_; }
  DataGrid& Grid() const override { return *form_->template findChild<DataGrid*>(u"grdScheda"_qs); }
  RecordsetModel& Rows() const { return Grid().Rows(); }
  QString Typed() const { return Editor() != nullptr ? Editor()->text() : u"no editor"_qs; }

  ScriptedDialogs dialogs_;
  const int catalog_;
  std::unique_ptr<Form> form_;
};

}  // namespace vorlina
