#include "imaging/xmp_packet.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tarnwell {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// An attribute in its tag: name="value". Positions count from the start of the packet.
struct Attribute {
  std::size_t begin = 0;  // of the blanks in front of it
  std::size_t end = 0;    // behind the closing quote
  std::string_view name;
  std::size_t value_begin = 0;
  std::size_t value_end = 0;
};

struct Tag {
  enum Kind { kOpening, kClosing, kEmpty, kOther };  // other: comments, instructions and the like
  Kind kind = kOther;
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string_view name;
  std::vector<Attribute> attributes;
};

class TagReader {
 public:
  explicit TagReader(std::string_view text) : text_(text) {}

  // The next tag, false at the end of the text or, with `damaged`, where one breaks off.
  bool Next(Tag& tag);
  bool damaged() const { return damaged_; }

 private:
  bool Fail() {
    damaged_ = true;
    return false;
  }
  bool Skip(Tag& tag, std::string_view end);
  bool ReadAttributes(Tag& tag);
  bool ReadAttribute(Tag& tag, std::size_t begin);
  std::string_view Name();
  bool At(char c) const { return at_ < text_.size() && text_[at_] == c; }
  void SkipBlanks() { at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size()); }

  std::string_view text_;
  std::size_t at_ = 0;
  bool damaged_ = false;
};

bool TagReader::Next(Tag& tag) {
  tag = {};
  at_ = text_.find('<', at_);
  if (at_ == text_.npos) return false;
  tag.begin = at_;
  const std::string_view rest = text_.substr(at_);
  if (rest.starts_with("<!--")) return Skip(tag, "-->");
  if (rest.starts_with("<![CDATA[")) return Skip(tag, "]]>");
  if (rest.starts_with("<?")) return Skip(tag, "?>");
  // A document type may define texts that stand for others; photos have none.
  if (rest.starts_with("<!")) return Fail();
  tag.kind = rest.starts_with("</") ? Tag::kClosing : Tag::kOpening;
  at_ += tag.kind == Tag::kClosing ? 2 : 1;
  tag.name = Name();
  return tag.name.empty() ? Fail() : ReadAttributes(tag);
}

bool TagReader::Skip(Tag& tag, std::string_view end) {
  at_ = text_.find(end, at_);
  if (at_ == text_.npos) return Fail();
  at_ += end.size();
  tag.end = at_;
  return true;
}

std::string_view TagReader::Name() {
  const std::size_t begin = at_;
  at_ = std::min(text_.find_first_of(" \t\r\n=/><\"'", at_), text_.size());
  return text_.substr(begin, at_ - begin);
}

bool TagReader::ReadAttributes(Tag& tag) {
  for (;;) {
    const std::size_t begin = at_;
    SkipBlanks();
    if (At('/')) {
      if (tag.kind == Tag::kClosing) return Fail();
      tag.kind = Tag::kEmpty;
      ++at_;
      if (!At('>')) return Fail();
    }
    if (At('>')) {
      tag.end = ++at_;
      return true;
    }
    // Without blanks between, what is left over of two attributes would run together.
    if (at_ == begin || !ReadAttribute(tag, begin)) return Fail();
  }
}

bool TagReader::ReadAttribute(Tag& tag, std::size_t begin) {
  Attribute attribute{.begin = begin, .name = Name()};
  SkipBlanks();
  if (attribute.name.empty() || !At('=')) return false;
  ++at_;
  SkipBlanks();
  if (!At('"') && !At('\'')) return false;
  attribute.value_begin = at_ + 1;
  attribute.value_end = text_.find(text_[at_], at_ + 1);
  if (attribute.value_end == text_.npos) return false;
  at_ = attribute.end = attribute.value_end + 1;
  tag.attributes.push_back(attribute);
  return true;
}

// The text without what is left out, and with what is changed; edits come in order.
class Copy {
 public:
  explicit Copy(std::string_view text) : text_(text) {}

  void Replace(std::size_t begin, std::size_t end, std::string_view by) {
    out_ += text_.substr(copied_, begin - copied_);
    out_ += by;
    copied_ = end;
  }
  std::string Finish() {
    Replace(text_.size(), text_.size(), "");
    return std::move(out_);
  }

 private:
  std::string_view text_;
  std::string out_;
  std::size_t copied_ = 0;
};

class Editor {
 public:
  Editor(std::string_view packet, const XmpRule& rule)
      : packet_(packet), rule_(rule), tags_(packet), copy_(packet) {}

  std::optional<std::string> Run();

 private:
  void Declare(const Tag& tag);
  XmpName NameOf(std::string_view name, bool attribute) const;
  void EditAttributes(const Tag& tag);
  void Open(const Tag& tag);
  bool Close(const Tag& tag);

  std::string_view packet_;
  const XmpRule& rule_;
  TagReader tags_;
  Copy copy_;
  std::map<std::string_view, std::string_view> vocabularies_;  // by prefix
  std::vector<std::string_view> open_;                         // names of elements
  // While an element is left out: how many were open around it, and where it began.
  std::optional<std::size_t> leaving_out_;
  std::size_t left_out_from_ = 0;
  // Set right behind the opening tag of an element whose text changes.
  std::optional<std::string> new_text_;
  std::size_t text_begin_ = 0;
};

constexpr std::string_view kDeclaration = "xmlns:";

// XMP uses a prefix for the same vocabulary everywhere, so they are not counted by element.
void Editor::Declare(const Tag& tag) {
  for (const Attribute& attribute : tag.attributes) {
    if (!attribute.name.starts_with(kDeclaration)) continue;
    vocabularies_[attribute.name.substr(kDeclaration.size())] =
        packet_.substr(attribute.value_begin, attribute.value_end - attribute.value_begin);
  }
}

XmpName Editor::NameOf(std::string_view name, bool attribute) const {
  const bool declaration = attribute && name.starts_with(kDeclaration);
  const std::size_t colon = name.find(':');
  if (colon == name.npos) return {{}, name};
  const std::string_view prefix = declaration ? name.substr(colon + 1) : name.substr(0, colon);
  const auto found = vocabularies_.find(prefix);
  const std::string_view vocabulary = found == vocabularies_.end() ? "" : found->second;
  return {vocabulary, declaration ? std::string_view() : name.substr(colon + 1)};
}

void Editor::EditAttributes(const Tag& tag) {
  for (const Attribute& attribute : tag.attributes) {
    const XmpFate fate = rule_(NameOf(attribute.name, true));
    if (fate.kind == XmpFate::kLeftOut) copy_.Replace(attribute.begin, attribute.end, "");
    if (fate.kind == XmpFate::kChanged) {
      copy_.Replace(attribute.value_begin, attribute.value_end, fate.value);
    }
  }
}

void Editor::Open(const Tag& tag) {
  Declare(tag);
  const XmpFate fate = leaving_out_ ? XmpFate() : rule_(NameOf(tag.name, false));
  if (fate.kind == XmpFate::kLeftOut) {
    if (tag.kind == Tag::kEmpty) return copy_.Replace(tag.begin, tag.end, "");
    leaving_out_ = open_.size();
    left_out_from_ = tag.begin;
  }
  if (!leaving_out_) EditAttributes(tag);
  new_text_.reset();
  if (tag.kind == Tag::kEmpty) return;
  if (fate.kind == XmpFate::kChanged) new_text_ = fate.value;
  text_begin_ = tag.end;
  open_.push_back(tag.name);
}

bool Editor::Close(const Tag& tag) {
  if (open_.empty() || open_.back() != tag.name) return false;
  open_.pop_back();
  if (leaving_out_ == open_.size()) {
    copy_.Replace(left_out_from_, tag.end, "");
    leaving_out_.reset();
  } else if (new_text_) {
    copy_.Replace(text_begin_, tag.begin, *new_text_);
  }
  new_text_.reset();
  return true;
}

std::optional<std::string> Editor::Run() {
  Tag tag;
  while (tags_.Next(tag)) {
    if (tag.kind == Tag::kOther) {
      new_text_.reset();
    } else if (tag.kind != Tag::kClosing) {
      Open(tag);
    } else if (!Close(tag)) {
      return std::nullopt;
    }
  }
  if (tags_.damaged() || !open_.empty()) return std::nullopt;
  return copy_.Finish();
}

}  // namespace

std::optional<std::string> EditXmp(std::string_view packet, const XmpRule& rule) {
  return Editor(packet, rule).Run();
}

}  // namespace tarnwell
