// The keyring of the user's desktop.
#pragma once

#include <QObject>

#include "update/PasswordStore.h"

namespace vorlina {

class Keyring : public PasswordKeeper {
 public:
  void Read(std::function<void(std::optional<QString>)> done) override;
  void Write(const QString& password, std::function<void(bool kept)> done) override;

 private:
  QObject receiver_;  // what it asked for ends with it
};

}  // namespace vorlina
