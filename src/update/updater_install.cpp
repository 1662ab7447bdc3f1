// How a newer build takes this copy's place.
#include <algorithm>
#include <utility>

#include "gateway/url.hpp"
#include "update/place.hpp"
#include "update/scripts.hpp"
#include "update/updater.hpp"
#include "update/verification.hpp"

namespace vellix {
namespace {

constexpr const char* kShell = "/bin/sh";
constexpr const char* kImage = "Vellix.dmg";

std::string fileUrl(const std::string& path) { return "file://" + percentEncode(path, "-._~/"); }

UpdateFail cannotReplaceItself() {
  return {
      "Vellix can't replace itself where it is. Drag the new Vellix from the window that opened "
      "into Applications."};
}

// Takes no more than it may.
class BoundedSink : public HttpSink {
 public:
  BoundedSink(std::shared_ptr<HttpSink> sink, std::int64_t most)
      : sink_(std::move(sink)), left_(most) {}

  bool write(std::string_view bytes) override {
    left_ -= static_cast<std::int64_t>(bytes.size());
    return left_ >= 0 && sink_->write(bytes);
  }

 private:
  const std::shared_ptr<HttpSink> sink_;
  std::int64_t left_;
};

}  // namespace

Task<> Updater::install(VersionInfo next) {
  auto replacing = replaceWith(std::move(next));
  const auto result = co_await std::move(replacing);
  if (result) co_return;
  // What is not there any more is not there to be tried again.
  phase.set(latest() ? Phase{Phase::Kind::failed, result.error().message} : Phase{});
}

Task<UpdateResult<Done>> Updater::replaceWith(VersionInfo next) {
  work("Downloading " + buildName(next) + "…");
  auto fetching = fetch(next.url);
  const auto arrived = co_await std::move(fetching);
  if (!arrived) co_return std::unexpected(arrived.error());

  auto releasing = releaseStage(ports_.tools, ports_.files, limits_.tool);
  co_await std::move(releasing);
  const auto renewing = ports_.files.renewStage();
  const bool renewed = co_await renewing;
  if (!renewed) co_return std::unexpected(didNotFinish());
  const auto moving = ports_.files.putIntoStage(*arrived, kImage);
  const bool moved = co_await moving;
  if (!moved) co_return std::unexpected(didNotFinish());

  work("Checking it's signed by Tessarine…");
  auto verifying = verify(ports_.tools, ports_.files, image(), next.build, limits_.tool);
  const auto fresh = co_await std::move(verifying);
  if (!fresh) co_return std::unexpected(fresh.error());
  co_return handOver(*fresh);
}

// Without the session's token: it goes to whoever the feed names.
Task<UpdateResult<std::shared_ptr<ArrivingFile>>> Updater::fetch(std::string url) {
  const auto asking = ports_.files.hasRoomFor(limits_.room);
  const bool room = co_await asking;
  if (!room) co_return std::unexpected(didNotFinish());

  const auto file = ports_.files.begin();
  std::stop_source deadline;
  TaskScope clock;
  clock.start(stopAfter(limits_.download, deadline));
  HttpRequest request{.method = "GET", .url = std::move(url)};
  request.sink = std::make_shared<BoundedSink>(file, limits_.image);
  request.lane = HttpLane::transfers;
  const auto sending = ports_.http.send(std::move(request), deadline.get_token());
  const auto answer = co_await sending;
  const bool noPage = answer ? answer->status != 200 : answer.error() == HttpError::notHttp;
  if (noPage) {
    co_return std::unexpected(
        UpdateFail{"The download page didn't answer. Try again in a minute."});
  }
  if (!answer) co_return std::unexpected(didNotFinish());
  co_return file;
}

Task<> Updater::stopAfter(Milliseconds limit, std::stop_source work) {
  const auto pause = ports_.loop.sleep(limit, {});
  co_await pause;
  work.request_stop();
}

// From here on the script goes on, once this process has ended.
UpdateResult<Done> Updater::handOver(const std::string& fresh) {
  const auto [parent, name] = placeOf(copy_.bundle);
  const std::string freshName = placeOf(fresh).name;
  // A disk that does not tell letters by their case has but one program of such names.
  const bool sameName = std::ranges::equal(name, freshName, {}, asciiLower, asciiLower);
  const SwapPlan plan{.process = copy_.process,
                      .current = parent + "/" + name,
                      .target = parent + "/" + (sameName ? name : freshName),
                      .fresh = fresh};
  const bool writable = ports_.files.isWritable(parent) && ports_.files.isWritable(plan.current);
  // The script begins with removing what an aborted swap has left.
  const bool leftOver = plan.current == plan.target + ".old";
  const bool safe = !leftOver && scriptsBear(plan.current) && scriptsBear(plan.fresh);
  if (!writable || !safe) {
    ports_.opener.open(fileUrl(image()));
    return std::unexpected(cannotReplaceItself());
  }
  work("Installing. Vellix reopens by itself.");
  const std::string script = ports_.files.stage() + "/swap.sh";
  if (!ports_.files.write(script, swapScript(plan)) || !ports_.tools.letGo(kShell, {script})) {
    return std::unexpected(didNotFinish());
  }
  ports_.terminate();
  return Done{};
}

std::string Updater::image() const { return ports_.files.stage() + "/" + kImage; }

}  // namespace vellix
