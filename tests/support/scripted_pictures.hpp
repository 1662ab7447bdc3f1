// Picture ports that live in memory. A picture is any text that begins with "pic"; one that begins
// with "pic torn" has a good header and does not decode to its end.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/ports/main_loop.hpp"
#include "platform/ports/pictures.hpp"

namespace vellix {

class FakePictureFiles : public PictureFiles {
 public:
  static constexpr const char* kFolder = "/caches/img/";

  std::string find(const std::string& name) const override {
    return files.contains(name) ? kFolder + name : std::string{};
  }
  std::string write(const std::string& name, const std::string& bytes) override {
    if (!writable) return {};
    files[name] = bytes;
    return kFolder + name;
  }

  std::map<std::string, std::string> files;  // by name
  bool writable = true;
};

class ScriptedDecoder : public PictureDecoder {
 public:
  ScriptedDecoder(MainLoop& loop, const FakePictureFiles& files) : loop_(loop), files_(files) {}

  std::optional<Picture> inspect(Picture encoded) const override {
    ++inspected[encoded.key];
    return read(std::move(encoded));
  }

  Pending<PictureHandle> decode(Picture encoded) override {
    decoded.push_back(encoded.key);
    const Resolver<PictureHandle> resolver;
    loop_.post([this, resolver, encoded] {
      const auto picture = read(encoded);
      const bool whole = picture && !bytesOf(encoded).starts_with("pic torn");
      resolver(whole ? std::make_shared<const Picture>(*picture) : nullptr);
    });
    return resolver.pending();
  }

  std::vector<std::string> decoded;              // keys, in order
  mutable std::map<std::string, int> inspected;  // times, by key

 private:
  std::string bytesOf(const Picture& encoded) const {
    if (encoded.file.empty()) return encoded.bytes;
    const std::string folder = FakePictureFiles::kFolder;
    const auto file = files_.files.find(encoded.file.substr(folder.size()));
    return file == files_.files.end() ? std::string{} : file->second;
  }

  std::optional<Picture> read(Picture encoded) const {
    const std::string bytes = bytesOf(encoded);
    if (!bytes.starts_with("pic")) return std::nullopt;
    encoded.width = static_cast<int>(bytes.size());
    encoded.height = 1;
    return encoded;
  }

  MainLoop& loop_;
  const FakePictureFiles& files_;
};

}  // namespace vellix
