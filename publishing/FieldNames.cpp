#include "FieldNames.h"

#include <utility>

namespace publishing {

FieldNames::FieldNames() : slots_(256) {}

int FieldNames::Add(FieldName name, std::size_t kind) {
  if (std::size_t(count_) * 2 >= slots_.size()) {
    const std::vector<Slot> former = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    for (const Slot& slot : former)
      if (slot.number != None) const_cast<Slot&>(SlotOf(slot.hash)) = slot;
  }
  auto& slot = const_cast<Slot&>(SlotOf(name.Hash()));
  if (slot.number == None) slot = {name.Hash(), count_++, 1U << AnyKind};
  slot.kinds |= 1U << kind;
  return slot.number;
}

}  // namespace publishing
