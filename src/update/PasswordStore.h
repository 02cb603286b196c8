// Where the password of the update's proxy is kept: in a keyring where there is one, else in the settings. A
// keyring may ask its user to unlock it first, so that nobody waits for it.
#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>

namespace vorlina {

// A place that keeps one password. What it answers comes by the event loop, never within the call.
class PasswordKeeper {
 public:
  virtual ~PasswordKeeper() = default;

  // "" where it keeps none, nothing where it does not tell.
  virtual void Read(std::function<void(std::optional<QString>)> done) = 0;
  // Takes the password in the place of the former one, "" for none.
  virtual void Write(const QString& password, std::function<void(bool kept)> done) = 0;
};

class PasswordStore {
 public:
  // Without a keyring the settings keep the password. The keyring outlives the store.
  explicit PasswordStore(PasswordKeeper* keyring = nullptr);

  // Gives the password while the receiver lives: at once where it is in the settings or on its way to the
  // keyring. Nothing where the keyring does not tell.
  void Read(QObject* receiver, const std::function<void(std::optional<QString>)>& done);
  // Keeps the password. It leaves the settings once the keyring has it, and goes there where the keyring does
  // not take it. One that it does not remove is removed at a later start. Throws Error where it cannot be
  // stored.
  void Save(const QString& password);
  // What is still on its way goes into the settings: the program ends, or the keyring takes long. Throws
  // Error.
  void Flush() const;

 private:
  void WriteNext();
  void Written(const QString& password, bool kept);

  PasswordKeeper* keyring_;
  QTimer patience_;
  std::optional<QString> known_;    // what the keyring keeps
  std::optional<QString> waiting_;  // what it has not taken yet
  bool writing_ = false;
};

// The store in force: one without a keyring, until another one is installed, which outlives its use.
PasswordStore& ThePasswordStore();
void InstallPasswordStore(PasswordStore* store);

}  // namespace vorlina
