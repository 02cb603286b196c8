// The names under which pages tell what they show, and which of them the templates of a skin ask for.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace publishing {

// A name, known by its hash. One that stands in the source costs nothing.
class FieldName {
 public:
  template <std::size_t Size>
  consteval FieldName(const char (&name)[Size]) : hash_(HashOf({name, Size - 1})) {}
  template <class Pointer>
  requires std::same_as<Pointer, const char*> FieldName(const Pointer& name) : hash_(HashOf(name)) {}
  FieldName(std::string_view name) : hash_(HashOf(name)) {}
  FieldName(const std::string& name) : hash_(HashOf(name)) {}

  std::uint64_t Hash() const { return hash_; }

 private:
  static constexpr std::uint64_t HashOf(std::string_view name) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
  }

  std::uint64_t hash_;
};

// The names that templates ask for, numbered. A kind is one of the templates.
class FieldNames {
 public:
  static constexpr int None = -1;
  static constexpr std::size_t AnyKind = 31;

  FieldNames();

  // Takes in a name that the template of a kind asks for, and gives its number.
  int Add(FieldName name, std::size_t kind);
  // The number of a name; none for one that the templates of the kind do not ask for.
  int NumberOf(FieldName name, std::size_t kind) const {
    const Slot& slot = SlotOf(name.Hash());
    return (slot.kinds >> kind & 1U) != 0 ? slot.number : None;
  }

 private:
  struct Slot {
    std::uint64_t hash = 0;
    std::int32_t number = None;
    std::uint32_t kinds = 0;
  };

  const Slot& SlotOf(std::uint64_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].number != None && slots_[at].hash != hash) at = (at + 1) & (slots_.size() - 1);
    return slots_[at];
  }

  std::vector<Slot> slots_;  // a power of two, half of them empty at least
  int count_ = 0;
};

}  // namespace publishing
