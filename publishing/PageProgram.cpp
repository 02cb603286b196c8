#include "PageProgram.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "PageMark.h"

namespace publishing {
namespace {

// Lists of lists of lists can be walked for days without a word written.
constexpr std::uint64_t MostSteps = 1 << 26;

}  // namespace

// Takes a template in line by line.
class PageCompiler {
 public:
  PageCompiler(const Template& source, FieldNames& names, std::size_t kind, PageProgram& program)
      : source_(source), names_(names), kind_(kind), program_(program) {}

  void Compile() {
    program_.origin_.file = source_.file;
    std::size_t at = 0;
    for (const Tag& tag : source_.tags) {
      AddTexts(at, tag.begin);
      line_.push_back({&tag, {}});
      at = tag.end;
    }
    AddTexts(at, source_.text.size());
    FlushLine({});
  }

 private:
  using Kind = PageProgram::Kind;
  // A tag, or a text.
  struct Piece {
    const Tag* tag = nullptr;
    std::string_view text;
  };
  struct Line {
    bool hasSections = false, hasValues = false;
    bool isClosed = true;  // what begins in it ends in it
    bool isEmpty = true;   // but for what stands within its sections
  };

  void AddTexts(std::size_t at, std::size_t end) {
    std::string_view texts = std::string_view(source_.text).substr(at, end - at);
    while (!texts.empty()) {
      const std::size_t size = std::min(texts.find('\n'), texts.size());
      line_.push_back({nullptr, texts.substr(0, size)});
      const bool ends = size < texts.size();
      if (ends) FlushLine("\n");
      texts.remove_prefix(size + (ends ? 1 : 0));
    }
  }

  static bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
  }

  Line Look() const {
    Line line;
    int depth = 0;
    for (const auto& [tag, text] : line_) {
      const char kind = tag == nullptr ? 't' : tag->kind;
      line.hasSections = line.hasSections || kind == '#' || kind == '^' || kind == '/' || kind == '!';
      line.hasValues = line.hasValues || kind == '\0' || (kind == 't' && !IsBlank(text));
      if (depth == 0 && (kind == '\0' || (kind == 't' && !IsBlank(text)))) line.isEmpty = false;
      depth += kind == '#' || kind == '^' ? 1 : (kind == '/' ? -1 : 0);
      line.isClosed = line.isClosed && depth >= 0;
    }
    line.isClosed = line.isClosed && depth == 0;
    return line;
  }

  void FlushLine(std::string_view lineEnd) {
    const Line line = Look();
    const bool isNone = line.hasSections && !line.hasValues;
    const bool mayBeNone = !isNone && line.hasSections && line.isClosed && line.isEmpty;
    if (mayBeNone) program_.steps_.push_back({Kind::LineStart, 0, 0});
    for (const auto& [tag, text] : line_)
      if (tag != nullptr)
        AddTag(*tag);
      else if (!isNone)
        AddText(text);
    if (mayBeNone)
      program_.steps_.push_back({Kind::LineEnd, 0, std::uint32_t(lineEnd.size())});
    else if (!isNone)
      AddText(lineEnd);
    line_.clear();
  }

  void AddText(std::string_view text) {
    if (text.empty()) return;
    if (program_.steps_.empty() || program_.steps_.back().kind != Kind::Text)
      program_.steps_.push_back({Kind::Text, std::uint32_t(program_.texts_.size()), 0});
    program_.steps_.back().size += std::uint32_t(text.size());
    program_.texts_ += text;
  }

  void AddTag(const Tag& tag) {
    const auto number = std::uint32_t(program_.steps_.size());
    if (tag.kind == '/') {
      program_.steps_[open_.back()].size = number;
      open_.pop_back();
      program_.steps_.push_back({Kind::End, 0, 0});
    } else if (tag.kind != '!') {
      const Kind kind = tag.kind == '#' ? Kind::Section : (tag.kind == '^' ? Kind::Inverted : Kind::Value);
      if (kind != Kind::Value) {
        open_.push_back(number);
        program_.sections_.emplace(number, PageProgram::Origin{tag.file, tag.line});
      }
      program_.steps_.push_back({kind, PathOf(tag.name), 0});
    }
  }

  std::uint32_t PathOf(std::string_view name) {
    std::vector<int> path;
    while (name != "." && !name.empty()) {
      const std::size_t end = std::min(name.find('.'), name.size());
      path.push_back(names_.Add(name.substr(0, end), kind_));
      name.remove_prefix(std::min(end + 1, name.size()));
    }
    const auto [known, isNew] = paths_.emplace(path, std::uint32_t(program_.paths_.size()));
    if (isNew) program_.paths_.push_back(std::move(path));
    return known->second;
  }

  const Template& source_;
  FieldNames& names_;
  std::size_t kind_;
  PageProgram& program_;
  std::vector<Piece> line_;
  std::vector<std::uint32_t> open_;  // sections
  std::map<std::vector<int>, std::uint32_t> paths_;
};

// Writes one page.
class PageWriter {
 public:
  PageWriter(const PageProgram& program, const FieldTree& site, const FieldTree& page, std::string& out)
      : program_(program), out_(out), seen_{{&site, &site.nodes[0]}, {&page, &page.nodes[0]}} {}

  void Run(std::uint32_t begin, std::uint32_t end) {
    for (std::uint32_t i = begin; i < end; ++i) {
      const PageProgram::Step& step = program_.steps_[i];
      switch (step.kind) {
        case Kind::Text:
          out_.append(program_.texts_, step.at, step.size);
          break;
        case Kind::Value:
          WriteText(Find(program_.paths_[step.at]));
          break;
        case Kind::Section:
          WriteSection(Find(program_.paths_[step.at]), i);
          i = step.size;
          break;
        case Kind::Inverted:
          if (!IsThere(Find(program_.paths_[step.at]))) Run(i + 1, step.size);
          i = step.size;
          break;
        case Kind::LineStart:
          lineStart_ = out_.size();
          break;
        case Kind::LineEnd:
          EndLine(step.size);
          break;
        case Kind::End:
          break;
      }
      if (++done_ > MostSteps || out_.size() > std::size_t(LargestPage)) Refuse(false);
    }
  }

 private:
  using Kind = PageProgram::Kind;
  using Node = FieldTree::Node;
  // A node, and where it stands.
  struct Place {
    const FieldTree* tree = nullptr;
    const Node* node = nullptr;
  };

  static bool IsThere(const Place& place) {
    if (place.node == nullptr) return false;
    const bool canBeNone = place.node->kind == FieldTree::Kind::List;
    if (place.node->kind == FieldTree::Kind::Flag) return place.node->first != 0;
    return !canBeNone || place.node->first != FieldTree::None;
  }

  static Place FindIn(const Place& group, int name) {
    if (group.node->kind != FieldTree::Kind::Group) return {};
    for (std::uint32_t i = group.node->first; i != FieldTree::None; i = group.tree->nodes[i].next) {
      const Node& node = group.tree->nodes[i];
      if (node.name == name) return {group.tree, &node};
      if (node.kind != FieldTree::Kind::Included) continue;
      const FieldTree* included = group.tree->included[node.first];
      if (const Place found = FindIn({included, &included->nodes[0]}, name); found.node != nullptr)
        return found;
    }
    return {};
  }

  Place Find(const std::vector<int>& path) const {
    if (path.empty()) return seen_.back();
    for (auto place = seen_.rbegin(); place != seen_.rend(); ++place) {
      Place found = *place;
      for (std::size_t i = 0; i < path.size() && found.node != nullptr; ++i) found = FindIn(found, path[i]);
      if (found.node != nullptr) return found;
    }
    return {};
  }

  void WriteText(const Place& place) {
    if (place.node != nullptr && place.node->kind == FieldTree::Kind::Text)
      out_.append(place.tree->texts, place.node->first, place.node->size);
  }

  void WriteSection(const Place& place, std::uint32_t step) {
    if (!IsThere(place)) return;
    const std::uint32_t end = program_.steps_[step].size;
    const std::uint32_t outer = std::exchange(section_, step);
    if (place.node->kind != FieldTree::Kind::List) {
      RunIn(place, step + 1, end);
    } else {
      // It would be found from within for ever.
      if (std::find(lists_.begin(), lists_.end(), place.node) != lists_.end()) Refuse(true);
      lists_.push_back(place.node);
      for (std::uint32_t i = place.node->first; i != FieldTree::None; i = place.tree->nodes[i].next)
        RunIn({place.tree, &place.tree->nodes[i]}, step + 1, end);
      lists_.pop_back();
    }
    section_ = outer;
  }

  void RunIn(const Place& place, std::uint32_t begin, std::uint32_t end) {
    seen_.push_back(place);
    Run(begin, end);
    seen_.pop_back();
  }

  [[noreturn]] void Refuse(bool isListInItself) const {
    const auto section = program_.sections_.find(section_);
    const PageProgram::Origin& origin =
        section != program_.sections_.end() ? section->second : program_.origin_;
    PageFault fault;
    fault.file = origin.file;
    fault.line = origin.line;
    fault.isListInItself = isListInItself;
    throw fault;
  }

  // The size is that of the line's end.
  void EndLine(std::uint32_t size) {
    if (out_.find_first_not_of(" \t\r", lineStart_) == std::string::npos)
      out_.resize(lineStart_);
    else
      out_.append(size, '\n');
  }

  const PageProgram& program_;
  std::string& out_;
  std::vector<Place> seen_;         // the innermost last
  std::vector<const Node*> lists_;  // that are being written
  std::uint32_t section_ = 0xffffffff;
  std::uint64_t done_ = 0;
  std::size_t lineStart_ = 0;
};

PageProgram::PageProgram(const Template& source, FieldNames& names, std::size_t kind) {
  PageCompiler(source, names, kind, *this).Compile();
}

void PageProgram::Write(const FieldTree& site, const FieldTree& page, std::string& out) const {
  PageWriter(*this, site, page, out).Run(0, std::uint32_t(steps_.size()));
}

}  // namespace publishing
