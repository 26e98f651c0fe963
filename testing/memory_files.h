// Files in memory, with the same rules for names as the real ones, and with knobs for faults.
#pragma once

#include <map>
#include <set>
#include <string>

#include "base/text.h"
#include "platform/files.h"

namespace brelwin::test {

class MemoryFiles final : public Files {
 public:
  bool Exists(std::string_view path) const override { return contents_.contains(Name(path)); }

  std::optional<std::string> Read(std::string_view path) const override {
    const auto found = contents_.find(Name(path));
    if (found == contents_.end() || Unreadable.contains(found->first)) return {};
    return found->second;
  }

  FileResult Write(std::string_view path, std::string_view bytes, FileAccess access) override {
    if (Fails()) return {"No space left on device"};
    if (Unwritable.contains(Name(path))) return {"Permission denied"};
    contents_[Name(path)] = bytes;
    NoteAccess(path, access);
    return {};
  }

  FileResult Append(std::string_view path, std::string_view bytes, FileAccess access) override {
    if (Fails()) return {"No space left on device"};
    if (Unwritable.contains(Name(path))) return {"Permission denied"};
    contents_[Name(path)].append(bytes);
    NoteAccess(path, access);
    return {};
  }

  FileResult Delete(std::string_view path) override {
    if (Fails()) return {"Read-only file system"};
    contents_.erase(Name(path));
    return {};
  }

  std::vector<std::string> NamesIn(std::string_view folder) const override {
    std::vector<std::string> names;
    const auto prefix = Name(folder) + "/";
    for (const auto& [name, bytes] : contents_)
      if (name.starts_with(prefix) && name.find('/', prefix.size()) == std::string::npos)
        names.push_back(name.substr(prefix.size()));
    return names;
  }

  std::optional<std::uint64_t> Length(std::string_view path) const override {
    const auto found = contents_.find(Name(path));
    if (found == contents_.end()) return {};
    return found->second.size();
  }

  // The text of a file, empty when there is none; and a file put there by somebody else.
  std::string Text(std::string_view path) const {
    return Exists(path) ? contents_.at(Name(path)) : std::string();
  }
  void Put(std::string_view path, std::string text) { contents_[Name(path)] = std::move(text); }
  bool IsOwnerOnly(std::string_view path) const { return ownerOnly_.contains(Name(path)); }

  static std::string Name(std::string_view path) { return UpperCase(Replace(path, "\\", "/")); }

  std::set<std::string> Unreadable;  // names (as Name gives them) that exist but cannot be read
  std::set<std::string> Unwritable;  // names that can only be read
  bool ReadOnly = false;             // every write fails
  int WriteCalls = 0;

 private:
  bool Fails() {
    ++WriteCalls;
    return ReadOnly;
  }

  void NoteAccess(std::string_view path, FileAccess access) {
    if (access == FileAccess::OwnerOnly) ownerOnly_.insert(Name(path));
  }

  std::map<std::string, std::string> contents_;
  std::set<std::string> ownerOnly_;
};

}  // namespace brelwin::test
