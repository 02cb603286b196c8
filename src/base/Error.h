// The one family of exceptions. The description is text fit to be shown to the user, in the user's language.
#pragma once

#include <QString>
#include <stdexcept>

namespace vorlina {

class Error : public std::runtime_error {
 public:
  explicit Error(const QString& description)
      : std::runtime_error(description.toStdString()), description_(description) {}

  const QString& Description() const noexcept { return description_; }

 private:
  QString description_;
};

// The description of any exception: an Error's own, else what() read as UTF-8.
inline QString DescriptionOf(const std::exception& error) {
  if (const auto* own = dynamic_cast<const Error*>(&error)) return own->Description();
  return QString::fromUtf8(error.what());
}

}  // namespace vorlina
