#include "update/verification.hpp"

#include <utility>
#include <vector>

#include "records/whole_number.hpp"

namespace vellix {
namespace {

constexpr const char* kHdiutil = "/usr/bin/hdiutil";
constexpr const char* kCodesign = "/usr/bin/codesign";
constexpr const char* kDitto = "/usr/bin/ditto";
constexpr const char* kSigner = "TeamIdentifier=QX9102846T";

std::string mountPointIn(const UpdateFiles& files) { return files.stage() + "/mnt"; }

std::vector<std::string> detaching(const std::string& mountPoint) {
  return {"detach", mountPoint, "-force"};
}

Task<> detach(Tools& tools, std::string mountPoint, Milliseconds longest) {
  const auto running = tools.run(kHdiutil, detaching(mountPoint), longest);
  co_await running;
}

// The program may end while the image is mounted; then nobody is left to wait for the tool.
class DetachAtTheLatest {
 public:
  DetachAtTheLatest(Tools& tools, std::string mountPoint)
      : tools_(tools), mountPoint_(std::move(mountPoint)) {}
  DetachAtTheLatest(const DetachAtTheLatest&) = delete;
  DetachAtTheLatest& operator=(const DetachAtTheLatest&) = delete;
  ~DetachAtTheLatest() {
    if (!done_) tools_.letGo(kHdiutil, detaching(mountPoint_));
  }
  void done() { done_ = true; }

 private:
  Tools& tools_;
  const std::string mountPoint_;
  bool done_ = false;
};

// An image of either name of the program is taken.
Task<std::string> appNameIn(UpdateFiles& files, std::string folder) {
  const auto finding = files.exists(folder + "/Vellix.app");
  const bool found = co_await finding;
  co_return found ? "Vellix.app" : "Sorel.app";
}

bool has(const std::string& text, std::string_view words) {
  return text.find(words) != std::string::npos;
}

bool isOurs(const std::string& signature) {
  return has(signature, kSigner) && has(signature, std::string{"Identifier="} + kBundleIdentifier);
}

Task<UpdateResult<std::string>> takeOut(Tools& tools, UpdateFiles& files, std::string image,
                                        std::int64_t build, Milliseconds longest) {
  const std::string mountPoint = mountPointIn(files);
  auto attaching = runTool(tools, kHdiutil,
                           {"attach", std::move(image), "-nobrowse", "-readonly", "-noautoopen",
                            "-mountpoint", mountPoint},
                           longest);
  const auto attached = co_await std::move(attaching);
  if (!attached) co_return std::unexpected(attached.error());

  auto naming = appNameIn(files, mountPoint);
  const std::string name = co_await std::move(naming);
  const std::string app = mountPoint + "/" + name;

  auto checking = runTool(tools, kCodesign, {"--verify", "--deep", "--strict", app}, longest);
  const auto sound = co_await std::move(checking);
  if (!sound) co_return std::unexpected(sound.error());

  auto asking = runTool(tools, kCodesign, {"-dv", app}, longest);
  const auto signature = co_await std::move(asking);
  if (!signature) co_return std::unexpected(signature.error());
  if (!isOurs(*signature)) {
    co_return std::unexpected(
        UpdateFail{"That download isn't signed by Tessarine, so it wasn't installed."});
  }

  const auto reading = files.textIn(app + "/Contents/Info.plist", "CFBundleVersion");
  const auto version = co_await reading;
  const auto number = version ? wholeNumber(*version) : std::nullopt;
  if (!number || *number < build) {
    co_return std::unexpected(
        UpdateFail{"The download isn't the new build yet. Try again in a few minutes."});
  }

  std::string copy = files.stage() + "/" + name;
  auto copying = runTool(tools, kDitto, {app, copy}, longest);
  const auto copied = co_await std::move(copying);
  if (!copied) co_return std::unexpected(copied.error());
  co_return copy;
}

}  // namespace

Task<UpdateResult<std::string>> verify(Tools& tools, UpdateFiles& files, std::string image,
                                       std::int64_t build, Milliseconds longest) {
  const std::string mountPoint = mountPointIn(files);
  DetachAtTheLatest mounted{tools, mountPoint};
  auto taking = takeOut(tools, files, std::move(image), build, longest);
  auto copy = co_await std::move(taking);
  // Even where it was not attached to the end, as far as that got.
  auto letting = detach(tools, mountPoint, longest);
  co_await std::move(letting);
  mounted.done();
  co_return copy;
}

Task<> releaseStage(Tools& tools, UpdateFiles& files, Milliseconds longest) {
  const std::string mountPoint = mountPointIn(files);
  auto naming = appNameIn(files, mountPoint);
  const std::string name = co_await std::move(naming);
  const auto finding = files.exists(mountPoint + "/" + name);
  const bool mounted = co_await finding;
  if (!mounted) co_return;
  auto letting = detach(tools, mountPoint, longest);
  co_await std::move(letting);
}

}  // namespace vellix
