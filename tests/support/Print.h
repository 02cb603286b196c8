// Failed expectations show Qt's texts as text.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QVariant>
#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const QString& text) { return out << text.toStdString(); }
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const QVariant& value, std::ostream* out) {
  *out << (value.isNull() ? "Null" : value.toString().toStdString());
}
