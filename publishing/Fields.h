// What a page is made of, told name by name: a tree for the template to show, and in the same pass the hash
// by which a page that stands already is known as the right one.
//
// Only what the template asks for is taken in. Texts are kept as they stand in HTML, without control
// characters, which no page may hold. Of two things told under one name in one place the later one counts.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "FieldNames.h"

namespace publishing {

struct FieldTree {
  enum class Kind : std::uint8_t { Text, Flag, Group, List, Included };
  static constexpr std::uint32_t None = 0xffffffff;

  struct Node {
    std::int16_t name = FieldNames::None;
    Kind kind = Kind::Group;
    std::uint32_t next = None;  // beside it, in the same group or list
    std::uint32_t first = 0;    // of a text: where it begins; else what is in it, or whether it is so
    std::uint32_t size = 0;     // of a text
  };

  std::vector<Node> nodes;  // the first is the whole
  std::string texts;
  std::vector<const FieldTree*> included;
  std::uint64_t hash = 0;
};

class Fragment;

class Fields {
 public:
  // For a page of a kind, or for what stands on pages of any.
  explicit Fields(const FieldNames& names, std::size_t kind = FieldNames::AnyKind);

  void Text(FieldName name, std::string_view text);
  void Flag(FieldName name, bool value);
  // To be written into a script element: nothing in it ends the element.
  void Json(FieldName name, const QJsonObject& object);
  template <class Tell>
  void Group(FieldName name, const Tell& tell) {
    const Place place = Open(name, FieldTree::Kind::Group);
    if (!place.isWanted) return;
    tell(*this);
    Close(place);
  }
  // `tell` is called with the number of each.
  template <class Tell>
  void List(FieldName name, std::size_t count, const Tell& tell) {
    const Place place = Open(name, FieldTree::Kind::List);
    if (!place.isWanted) return;
    for (std::size_t i = 0; i < count; ++i) {
      const Place item = Open(FieldNames::None, FieldTree::Kind::Group);
      tell(*this, i);
      Close(item);
    }
    Close(place);
  }
  // Takes in what was told once for many pages, which must outlive this.
  void Include(const Fragment& fragment);

  // An empty text or group does not exist for a template.
  void TextIf(FieldName name, std::string_view text) { text.empty() ? Flag(name, false) : Text(name, text); }
  template <class Tell>
  void GroupIf(bool condition, FieldName name, const Tell& tell) {
    condition ? Group(name, tell) : Flag(name, false);
  }
  // What is told here follows from what has this fingerprint alone: that is hashed in its place, and it is
  // told when the page is made, if it is. Only for what takes long.
  void Later(std::uint64_t from, std::function<void(Fields&)> tell);
  // Tells what was left for later. To be called before the tree is shown.
  void Complete();

  // Begins anew, for the next page.
  void Clear();
  const FieldTree& Tree() const { return tree_; }
  std::uint64_t Hash() const { return tree_.hash; }

 private:
  struct Place {
    bool isWanted = false;
    std::uint32_t group = 0, last = FieldTree::None;  // that of before
  };

  // What is told for pages of all kinds does not depend on what their templates ask for: a template that
  // changes makes no pages of others anew.
  bool IsWanted(int number) const { return number != FieldNames::None || kind_ == FieldNames::AnyKind; }
  Place Open(FieldName name, FieldTree::Kind kind);
  Place Open(int number, FieldTree::Kind kind);
  void Close(const Place& place);
  FieldTree::Node& Append(int number, FieldTree::Kind kind);
  void AppendText(int number, std::string_view text, bool escapes);
  void Mix(std::uint64_t number);

  struct Left {
    std::uint32_t group;
    std::function<void(Fields&)> tell;
  };

  const FieldNames* names_;
  std::size_t kind_;
  FieldTree tree_;
  std::vector<Left> left_;
  std::uint32_t group_ = 0;               // what is being told
  std::uint32_t last_ = FieldTree::None;  // of a list: its last item
};

// Something that stands on many pages, told once.
class Fragment {
 public:
  template <class Tell>
  Fragment(const FieldNames& names, const Tell& tell) {
    Fields fields(names);
    tell(fields);
    fields.Complete();
    tree_ = fields.Tree();
  }
  const FieldTree& Tree() const { return tree_; }

 private:
  FieldTree tree_;
};

}  // namespace publishing
