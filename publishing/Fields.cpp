#include "Fields.h"

#include <Escapes.h>

#include <QJsonDocument>
#include <algorithm>
#include <array>
#include <utility>

#include "Fingerprint.h"

namespace publishing {

Fields::Fields(const FieldNames& names, std::size_t kind) : names_(&names), kind_(kind) { Clear(); }

void Fields::Clear() {
  tree_.nodes.assign(1, {});
  tree_.nodes[0].first = FieldTree::None;
  tree_.texts.clear();
  tree_.included.clear();
  left_.clear();
  tree_.hash = 0;
  group_ = 0;
  last_ = FieldTree::None;
}

void Fields::Mix(std::uint64_t number) {
  tree_.hash = (tree_.hash ^ number) * 0x9e3779b97f4a7c15;
  tree_.hash ^= tree_.hash >> 29;
}

void Fields::Later(std::uint64_t from, std::function<void(Fields&)> tell) {
  Mix(from);
  left_.push_back({group_, std::move(tell)});
}

void Fields::Complete() {
  const std::uint64_t hash = tree_.hash;
  for (const Left& left : std::exchange(left_, {})) {
    group_ = left.group;
    left.tell(*this);
  }
  group_ = 0;
  tree_.hash = hash;
}

// The items of a list keep their order; of a group the latest is found first.
FieldTree::Node& Fields::Append(int number, FieldTree::Kind kind) {
  const auto added = std::uint32_t(tree_.nodes.size());
  FieldTree::Node& node = tree_.nodes.emplace_back();
  node.name = std::int16_t(number);
  node.kind = kind;
  FieldTree::Node& group = tree_.nodes[group_];
  if (group.kind == FieldTree::Kind::List && last_ != FieldTree::None) {
    tree_.nodes[last_].next = added;
  } else {
    node.next = group.first;
    group.first = added;
  }
  last_ = added;
  return node;
}

Fields::Place Fields::Open(FieldName name, FieldTree::Kind kind) {
  const int number = names_->NumberOf(name, kind_);
  if (!IsWanted(number)) return {};
  Mix(name.Hash());
  return Open(number, kind);
}

Fields::Place Fields::Open(int number, FieldTree::Kind kind) {
  Mix(std::uint64_t(kind));
  Append(number, kind).first = FieldTree::None;
  const Place place{true, group_, last_};
  group_ = last_;
  last_ = FieldTree::None;
  return place;
}

void Fields::Close(const Place& place) {
  Mix('}');
  group_ = place.group;
  last_ = place.last;
}

void Fields::AppendText(int number, std::string_view text, bool escapes) {
  FieldTree::Node& node = Append(number, FieldTree::Kind::Text);
  node.first = std::uint32_t(tree_.texts.size());
  (escapes ? files::AppendEscaped : files::AppendClean)(text, tree_.texts);
  node.size = std::uint32_t(tree_.texts.size()) - node.first;
}

void Fields::Text(FieldName name, std::string_view text) {
  const int number = names_->NumberOf(name, kind_);
  if (!IsWanted(number)) return;
  Mix(name.Hash());
  Mix(Fingerprint(text));
  if (number != FieldNames::None) AppendText(number, text, true);
}

void Fields::Flag(FieldName name, bool value) {
  const int number = names_->NumberOf(name, kind_);
  if (!IsWanted(number)) return;
  Mix(name.Hash() + (value ? 2 : 1));
  if (number != FieldNames::None) Append(number, FieldTree::Kind::Flag).first = value ? 1 : 0;
}

void Fields::Json(FieldName name, const QJsonObject& object) {
  const int number = names_->NumberOf(name, kind_);
  if (!IsWanted(number)) return;
  const QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
  std::string bytes;
  for (const char c : text)
    if (c == '<')
      bytes += "\\u003c";
    else if (c == '>')
      bytes += "\\u003e";
    else if (c == '&')
      bytes += "\\u0026";
    else
      bytes += c;
  Mix(name.Hash() + 3);
  Mix(Fingerprint(bytes));
  AppendText(number, bytes, false);
}

void Fields::Include(const Fragment& fragment) {
  Mix(fragment.Tree().hash);
  FieldTree::Node& node = Append(FieldNames::None, FieldTree::Kind::Included);
  node.first = std::uint32_t(tree_.included.size());
  tree_.included.push_back(&fragment.Tree());
}

}  // namespace publishing
