#include "update/PasswordStore.h"

#include <QLoggingCategory>

#include "base/Error.h"
#include "base/Settings.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(update, "vorlina.update", QtInfoMsg)

constexpr int Patience = 5000;  // milliseconds, in which a keyring that is open answers

const QString ToForget = u"ScordaPassword"_qs;  // "1": the keyring still has to lose what it keeps

PasswordStore* installed = nullptr;

QString InSettings() { return GetSetting(ApplicationTitle(), u"Aggiornamento"_qs, u"Password"_qs, {}); }

void SaveInSettings(const QString& password) {
  SaveSetting(ApplicationTitle(), u"Aggiornamento"_qs, u"Password"_qs, password);
}

bool IsToForget() { return GetSetting(ApplicationTitle(), u"Aggiornamento"_qs, ToForget, u"0"_qs) == u"1"; }

void SetToForget(bool forget) {
  if (forget != IsToForget())
    SaveSetting(ApplicationTitle(), u"Aggiornamento"_qs, ToForget, forget ? u"1"_qs : u"0"_qs);
}

// What the keyring has not taken.
void KeepInSettings(const QString& password) {
  SetToForget(password.isEmpty());
  SaveInSettings(password);
}

}  // namespace

PasswordStore::PasswordStore(PasswordKeeper* keyring) : keyring_(keyring) {
  patience_.setSingleShot(true);
  patience_.setInterval(Patience);
  QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { Flush(); });
}

void PasswordStore::Read(QObject* receiver, const std::function<void(std::optional<QString>)>& done) {
  const QString stored = waiting_.value_or(InSettings());
  if (waiting_ || !stored.isEmpty() || keyring_ == nullptr) return done(stored);
  if (IsToForget()) {
    Save({});
    return done(stored);
  }
  keyring_->Read([this, to = QPointer(receiver), done](const std::optional<QString>& password) {
    known_ = password;
    if (!to.isNull()) done(password);
  });
}

void PasswordStore::Save(const QString& password) {
  if (keyring_ == nullptr || (!waiting_ && known_ == password))
    return SaveInSettings(keyring_ == nullptr ? password : QString());
  waiting_ = password;
  if (!writing_) return WriteNext();
  patience_.start();  // that of the former one may be over
}

void PasswordStore::WriteNext() {
  writing_ = true;
  patience_.start();
  keyring_->Write(*waiting_, [this, password = *waiting_](bool kept) { Written(password, kept); });
}

void PasswordStore::Written(const QString& password, bool kept) {
  writing_ = false;
  known_.reset();
  if (waiting_ != password) return WriteNext();
  patience_.stop();
  if (!kept) {
    qCInfo(update) << "the keyring did not take the password: it goes into the settings";
    KeepInSettings(password);
    return waiting_.reset();
  }
  known_ = password;
  waiting_.reset();
  SetToForget(false);
  SaveInSettings({});
}

void PasswordStore::Flush() const {
  if (waiting_) KeepInSettings(*waiting_);
}

PasswordStore& ThePasswordStore() {
  static PasswordStore plain;
  return installed != nullptr ? *installed : plain;
}

void InstallPasswordStore(PasswordStore* store) { installed = store; }

}  // namespace vorlina
