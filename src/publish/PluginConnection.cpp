#include "publish/PluginConnection.h"

#include <QThread>
#include <list>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/Connection.h"

namespace vorlina {

// What a connection and its rows share: the open statements, and whether the call still lasts. It lives as
// long as the last of them.
class PluginSession {
 public:
  using Place = std::list<Rows>::iterator;

  explicit PluginSession(Connection& connection)
      : connection_(&connection), thread_(QThread::currentThread()) {}

  Connection& Own() const;
  Place Keep(Rows rows) { return rows_.insert(rows_.end(), std::move(rows)); }
  // On another thread the statement waits for the end of the call.
  void Release(Place place) noexcept {
    if (QThread::currentThread() == thread_ && connection_ != nullptr) rows_.erase(place);
  }
  void End() noexcept {
    rows_.clear();
    connection_ = nullptr;
  }

 private:
  Connection* connection_;  // null when the call is over
  const QThread* thread_;
  std::list<Rows> rows_;
};

namespace {

// A mistake of the plug-in, told to a user who cannot mend it.
Error Mistake(const QString& what) {
  return Error(what + Texts::tr(" Chiedere una versione corretta a chi ha fatto il plug-in."));
}

Error NoColumn(const QString& column) {
  return Mistake(
      Texts::tr("Il plug-in legge la colonna \"%1\", che la sua interrogazione non ha.").arg(column));
}

class PluginRows : public IVorlinaRows {
 public:
  PluginRows(std::shared_ptr<PluginSession> session, Rows rows)
      : session_(std::move(session)), rows_(session_->Keep(std::move(rows))) {}
  ~PluginRows() override { session_->Release(rows_); }
  PluginRows(const PluginRows&) = delete;
  PluginRows& operator=(const PluginRows&) = delete;

  // The end stays the end: a further step would be refused by the database.
  bool Next() override {
    Rows& rows = Open();
    if (place_ == Place::BehindLast) return false;
    place_ = rows.Next() ? Place::OnRow : Place::BehindLast;
    return place_ == Place::OnRow;
  }
  int ColumnCount() const override { return Open().ColumnCount(); }
  QString ColumnName(int column) const override { return WithColumn(column).ColumnName(column); }
  QVariant Value(int column) const override {
    const Rows& rows = WithColumn(column);
    if (place_ != Place::OnRow)
      throw Mistake(Texts::tr("Il plug-in legge un valore dove non c'è nessuna riga."));
    return rows.Value(column);
  }
  QVariant Value(const QString& column) const override {
    for (int i = 0; i < ColumnCount(); ++i)
      if (ColumnName(i).compare(column, Qt::CaseInsensitive) == 0) return Value(i);
    throw NoColumn(column);
  }

 private:
  enum class Place { BeforeFirst, OnRow, BehindLast };

  Rows& Open() const {
    session_->Own();
    return *rows_;
  }
  Rows& WithColumn(int column) const {
    Rows& rows = Open();
    if (column < 0 || column >= rows.ColumnCount()) throw NoColumn(QString::number(column));
    return rows;
  }

  std::shared_ptr<PluginSession> session_;
  PluginSession::Place rows_;
  Place place_ = Place::BeforeFirst;
};

}  // namespace

Connection& PluginSession::Own() const {
  if (QThread::currentThread() != thread_)
    throw Mistake(Texts::tr("Il plug-in usa la connessione da un altro thread."));
  if (connection_ == nullptr)
    throw Mistake(Texts::tr("Il plug-in usa la connessione dopo la fine della sua chiamata."));
  return *connection_;
}

PluginConnection::PluginConnection(Connection& connection)
    : session_(std::make_shared<PluginSession>(connection)) {}

PluginConnection::~PluginConnection() { End(); }

void PluginConnection::End() noexcept { session_->End(); }

QString PluginConnection::DataSource() const { return session_->Own().DataSource(); }

void PluginConnection::Execute(const QString& sql, const QVariantList& values) {
  session_->Own().Execute(sql, values);
}

std::unique_ptr<IVorlinaRows> PluginConnection::Open(const QString& sql, const QVariantList& values) {
  return std::make_unique<PluginRows>(session_, Rows(session_->Own(), sql, values));
}

void PluginConnection::BeginTrans() { session_->Own().BeginTrans(); }
void PluginConnection::CommitTrans() { session_->Own().CommitTrans(); }
void PluginConnection::RollbackTrans() { session_->Own().RollbackTrans(); }

}  // namespace vorlina
