#include "Fields.h"

#include <QCryptographicHash>
#include <algorithm>
#include <string_view>

namespace publishing {
namespace {

// How many bytes of UTF-8 a control character, or one that is none at all, takes at this place; 0 for any
// other. Line ends and tabs are text.
std::size_t ControlAt(std::string_view text) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  const unsigned first = byte(0);
  if (first < 0x20) return first == '\n' || first == '\r' || first == '\t' ? 0 : 1;
  if (first == 0x7F) return 1;
  if (first == 0xC2 && byte(1) < 0xA0) return 2;
  return first == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE ? 3 : 0;
}

// Whether some byte can be the first of a control character, as it is in few texts.
bool MayHaveControls(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F || byte == 0xC2 || byte == 0xEF;
  });
}

std::string WithoutControls(const std::string& text) {
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t control = ControlAt(std::string_view(text).substr(i));
    if (control == 0) clean += text[i];
    i += std::max<std::size_t>(control, 1);
  }
  return clean;
}

}  // namespace

void Fields::TextIf(const char* name, const std::string& text) {
  if (text.empty())
    Flag(name, false);
  else
    Text(name, text);
}

void Fields::GroupIf(bool condition, const char* name, const Tell& tell) {
  if (condition)
    Group(name, tell);
  else
    Flag(name, false);
}

// Lengths stand before what has one, so that two contents are never told by the same bytes.
void FieldHash::Add(const char* bytes, std::size_t size) {
  told_ += std::to_string(size);
  told_ += ':';
  told_.append(bytes, size);
}

bool FieldHash::Begin(const char* name, char kind) {
  if (names_ != nullptr && names_->find(std::string_view(name)) == names_->end()) return false;
  told_ += kind;
  told_ += name;
  told_ += '=';
  return true;
}

void FieldHash::Text(const char* name, const std::string& text) {
  if (Begin(name, 't')) Add(text.data(), text.size());
}

void FieldHash::Flag(const char* name, bool value) {
  if (Begin(name, 'b')) told_ += value ? '1' : '0';
}

void FieldHash::Group(const char* name, const Tell& tell) {
  if (!Begin(name, 'g')) return;
  tell(*this);
  told_ += '}';
}

void FieldHash::List(const char* name, std::size_t count, const TellItem& tell) {
  if (!Begin(name, 'l')) return;
  for (std::size_t i = 0; i < count; ++i) {
    told_ += ',';
    tell(*this, i);
  }
  told_ += '}';
}

void FieldHash::Derived(const QByteArray& from, const Tell&) {
  told_ += 'd';
  Add(from.constData(), std::size_t(from.size()));
}

QByteArray FieldHash::Result() const {
  return QCryptographicHash::hash(QByteArrayView(told_.data(), qsizetype(told_.size())),
                                  QCryptographicHash::Sha1)
      .left(16);
}

void FieldData::Text(const char* name, const std::string& text) {
  data_[name] = MayHaveControls(text) ? Data{WithoutControls(text)} : Data{text};
}

void FieldData::Group(const char* name, const Tell& tell) {
  FieldData group;
  tell(group);
  data_[name] = group.Take();
}

void FieldData::List(const char* name, std::size_t count, const TellItem& tell) {
  Data list{Data::type::list};
  // A list takes copies alone, and copies of all that it has when it grows.
  auto& items = const_cast<kainjow::mustache::list&>(list.list_value());
  items.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    FieldData item;
    tell(item, i);
    items.push_back(item.Take());
  }
  data_[name] = std::move(list);
}

}  // namespace publishing
