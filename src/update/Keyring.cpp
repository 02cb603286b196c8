#include "update/Keyring.h"

#include <qt6keychain/keychain.h>

namespace vorlina {
namespace {

const QString Service = QStringLiteral("Vorlina");
const QString Key = QStringLiteral("Aggiornamento/Password");

// Queued: some keyrings answer from within calls of another library, which no exception may pass.
template <class Job>
void Start(Job& job, const QObject& receiver, const std::function<void(Job&)>& done) {
  job.setAutoDelete(false);
  job.setKey(Key);
  QObject::connect(
      &job, &QKeychain::Job::finished, &receiver,
      [&job, done] {
        job.deleteLater();
        done(job);
      },
      Qt::QueuedConnection);
  job.start();
}

}  // namespace

void Keyring::Read(std::function<void(std::optional<QString>)> done) {
  auto* job = new QKeychain::ReadPasswordJob(Service, &receiver_);
  Start<QKeychain::ReadPasswordJob>(*job, receiver_, [done](const QKeychain::ReadPasswordJob& read) {
    const bool none = read.error() == QKeychain::EntryNotFound;
    if (none || read.error() == QKeychain::NoError) return done(none ? u""_qs : read.textData());
    // Where there is no keyring at all there is no password in one.
    const bool absent =
        read.error() == QKeychain::NoBackendAvailable || read.error() == QKeychain::NotImplemented;
    done(absent ? std::optional(u""_qs) : std::nullopt);
  });
}

void Keyring::Write(const QString& password, std::function<void(bool kept)> done) {
  if (password.isEmpty()) {
    auto* removal = new QKeychain::DeletePasswordJob(Service, &receiver_);
    Start<QKeychain::DeletePasswordJob>(*removal, receiver_, [done](const QKeychain::DeletePasswordJob& job) {
      done(job.error() == QKeychain::NoError || job.error() == QKeychain::EntryNotFound);
    });
    return;
  }
  auto* job = new QKeychain::WritePasswordJob(Service, &receiver_);
  job->setTextData(password);
  Start<QKeychain::WritePasswordJob>(*job, receiver_, [done](const QKeychain::WritePasswordJob& write) {
    done(write.error() == QKeychain::NoError);
  });
}

}  // namespace vorlina
