// Files that fail when the test says so, over any others.
#pragma once

#include <string>

#include "platform/files.h"

namespace brelwin::test {

// Every call of the port counts, from 1.
class FaultyFiles final : public Files {
 public:
  explicit FaultyFiles(Files& files) : files_(files) {}

  int FailAtCall = 0;      // this one call fails, those after it work again; 0 is never
  int PowerOffAtCall = 0;  // this call and all later ones do nothing; of an append, half still arrives
  int Calls() const { return calls_; }

  bool Exists(std::string_view path) const override { return Works() && files_.Exists(path); }

  std::optional<std::string> Read(std::string_view path) const override {
    if (!Works()) return {};
    return files_.Read(path);
  }

  FileResult Write(std::string_view path, std::string_view bytes, FileAccess access) override {
    if (!Works()) return {"No space left on device"};
    return files_.Write(path, bytes, access);
  }

  FileResult Append(std::string_view path, std::string_view bytes, FileAccess access) override {
    if (Works()) return files_.Append(path, bytes, access);
    if (calls_ == PowerOffAtCall) files_.Append(path, bytes.substr(0, bytes.size() / 2), access);
    return {"No space left on device"};
  }

  FileResult Delete(std::string_view path) override {
    if (!Works()) return {"Input/output error"};
    return files_.Delete(path);
  }

  std::vector<std::string> NamesIn(std::string_view folder) const override {
    if (!Works()) return {};
    return files_.NamesIn(folder);
  }

  std::optional<std::uint64_t> Length(std::string_view path) const override {
    if (!Works()) return {};
    return files_.Length(path);
  }

 private:
  bool Works() const {
    ++calls_;
    return calls_ != FailAtCall && (PowerOffAtCall == 0 || calls_ < PowerOffAtCall);
  }

  Files& files_;
  mutable int calls_ = 0;
};

}  // namespace brelwin::test
