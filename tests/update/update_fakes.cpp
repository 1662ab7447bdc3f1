#include "update/update_fakes.hpp"

#include <algorithm>

namespace vellix {
namespace {

std::string callOf(const std::string& path, const std::vector<std::string>& arguments) {
  std::string call = path;
  for (const auto& argument : arguments) call += " " + argument;
  return call;
}

}  // namespace

Pending<ToolResult> FakeTools::run(std::string path, std::vector<std::string> arguments,
                                   Milliseconds longest) {
  const std::string call = callOf(path, arguments);
  asked_.push_back(call);
  deadlines.push_back(longest);
  const auto begins = [&call](const auto& beginning) { return call.starts_with(beginning); };
  const Resolver<ToolResult> resolver;
  if (std::ranges::any_of(hanging, begins)) {
    open_.push_back(resolver);
    return resolver.pending();
  }
  const auto found =
      std::ranges::find_if(answers_, [&](const auto& entry) { return begins(entry.first); });
  const ToolResult result = found == answers_.end() ? ToolResult{ToolExit{}} : found->second;
  loop_.post([resolver, result] { resolver(result); });
  return resolver.pending();
}

bool FakeTools::letGo(const std::string& path, const std::vector<std::string>& arguments) {
  if (startable) asked_.push_back("let go: " + callOf(path, arguments));
  return startable;
}

Pending<bool> FakeUpdateFiles::hasRoomFor(std::int64_t bytes) { return later(bytes <= room); }

std::shared_ptr<ArrivingFile> FakeUpdateFiles::begin() {
  asked_.push_back("begin a file");
  arrived = std::make_shared<File>();
  return arrived;
}

Pending<bool> FakeUpdateFiles::renewStage() {
  asked_.push_back("renew the stage");
  return later(renewable);
}

Pending<bool> FakeUpdateFiles::putIntoStage(std::shared_ptr<ArrivingFile> file, std::string name) {
  asked_.push_back("put into the stage: " + name + (file == arrived ? "" : ", another file"));
  return later(movable);
}

// What an image holds is there while it is attached.
bool FakeUpdateFiles::attached() const {
  bool attached = leftAttached;
  for (const auto& call : asked_) {
    if (call.starts_with("/usr/bin/hdiutil attach")) attached = true;
    if (call.starts_with("/usr/bin/hdiutil detach")) attached = false;
  }
  return attached;
}

Pending<bool> FakeUpdateFiles::exists(std::string path) {
  const bool inImage = path.starts_with(stage() + "/mnt/");
  return later(standing.contains(path) && (!inImage || attached()));
}

Pending<std::optional<std::string>> FakeUpdateFiles::textIn(std::string propertyList,
                                                            std::string key) {
  const auto found = versions.find(propertyList);
  const bool there = found != versions.end() && key == "CFBundleVersion";
  return later(there ? std::optional{found->second} : std::nullopt);
}

bool FakeUpdateFiles::write(const std::string& path, const std::string& text) {
  asked_.push_back("write " + path);
  if (takesScripts) written[path] = text;
  return takesScripts;
}

UpdateDesk::UpdateDesk(RunningCopy running) {
  http.automatic = [this](const ScriptedHttp::Exchange& exchange) -> std::optional<HttpResult> {
    if (!exchange.line().ends_with("version.json")) return image;
    if (!feed) return HttpResult{answerOf(500)};
    return HttpResult{answerOf(200, *encode(*feed))};
  };
  mend();
  updater.emplace(Updater::Ports{api, http, defaults, time, tools, files, opener, wakes,
                                 [this] { asked.push_back("terminate"); }},
                  std::move(running));
}

void UpdateDesk::mend() {
  image = answerOf(200, "the image");
  files.room = std::int64_t{1} << 40;
  files.renewable = files.movable = files.takesScripts = true;
  files.standing = {"/caches/SorelUpdate/mnt/Vellix.app"};
  files.versions = {{"/caches/SorelUpdate/mnt/Vellix.app/Contents/Info.plist", "42"},
                    {"/caches/SorelUpdate/mnt/Sorel.app/Contents/Info.plist", "42"}};
  tools.startable = true;
  tools.forget();
  tools.answer("/usr/bin/codesign -dv",
               ToolExit{.status = 0,
                        .output = "Identifier=com.rennyvale.Sorel\nTeamIdentifier=QX9102846T\n"});
}

void UpdateDesk::check(bool autoInstall) {
  tasks.start(updater->check(autoInstall));
  settle();
}

void UpdateDesk::learn(const VersionInfo& version, bool autoInstall) {
  feed = version;
  check(autoInstall);
}

}  // namespace vellix
