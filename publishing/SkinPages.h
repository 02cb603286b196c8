// The pages of a publication, made by the templates of a skin.
#pragma once

#include <functional>
#include <vector>

#include "Publication.h"
#include "Skin.h"

namespace publishing {

class SkinPages {
 public:
  struct Source {
    // What every page shows.
    std::function<void(Fields&)> tellSite;
    // Which kind of page that of a number is, and what it shows besides. Called on any thread.
    std::function<std::size_t(std::size_t)> kindOf;
    std::function<void(Fields&, std::size_t)> tell;
  };
  // The skin must outlive it.
  SkinPages(const Skin& skin, Source source);

  // For Publication::Make, which this must outlive.
  NewPageMaker Maker() const;

 private:
  class Maker_;

  const Skin& skin_;
  Source source_;
  std::vector<Fields> sites_;  // by kind: what every page shows
};

}  // namespace publishing
