// The service: requests in, answers out, with one lock around the state. Knows no sockets.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>

#include "faults.hpp"
#include "feed.hpp"
#include "state.hpp"

namespace vellix::demo {

struct Request {
  std::string method;
  std::string path;  // decoded, with its leading slash
  std::map<std::string, std::string> query;
  std::map<std::string, std::string> headers;  // names in lower case
  std::string body;

  std::string header(const std::string& name) const;
};

struct Reply {
  int status = 200;
  std::string body = "{}";
  std::string type = "application/json";
  std::string etag = {};
  bool cut = false;     // close the connection without an answer
  bool unread = false;  // close it behind the answer: what was sent was not read to its end
  std::optional<std::size_t> bytes = {};     // a made-up PDF of so many in the place of the body
  std::shared_ptr<const PdfFile> file = {};  // sent in the place of the body, never held as a whole
  std::optional<std::size_t> cutAt = {};     // close it behind so many bytes of the body
  Int dripMs = 0;                            // wait before each kDrip of the body
};

// One request received, as the log tells it. Holds no secret.
struct LogEntry {
  std::string method;
  std::string path;
  std::map<std::string, std::string> query;
  std::optional<std::string> body;
  bool has_authorization = false;
  std::optional<std::string> if_none_match;
  Int status = 0;  // 0 while there is no answer, and for good when it was cut off
  Int bytes = 0;   // of the body, as far as it has come
};
BOOST_DESCRIBE_STRUCT(LogEntry, (),
                      (method, path, query, body, has_authorization, if_none_match, status, bytes))

// A request that is in the log, while its body comes.
struct Begun {
  std::optional<std::size_t> number;
  std::optional<Fault> fault;
};

class Service {
 public:
  // `address` is where it can be reached, for the links that it makes.
  // On a shelf everything is kept that is done, and with a shelf that holds something it goes on
  // from there, whatever `books` says.
  Service(const std::string& address, double pace, bool colleague, bool books = true,
          std::unique_ptr<Shelf> shelf = nullptr);

  // Ahead of all else: what was kept is laid over the board.
  Kept takeUp();

  // Ahead of all else: pages of PDFs that were drawn are kept below that folder. False where they
  // cannot be.
  bool keepPagesIn(const std::string& folder);

  // Ahead of the first request: somebody's own proofs come onto the board.
  std::expected<void, std::string> give(const std::vector<GivenProof>& proofs);

  // Any thread; several at once. A request begins when its head is there; `reading` is asked again
  // and again how to go on, first at 0 bytes, and a reply from it ends the request with the rest
  // of the body unread; `answer` takes a request that is whole.
  Begun begin(const Request& head);
  std::optional<Reply> reading(Begun& begun, const Request& head, std::size_t bytes);
  Reply answer(const Begun& begun, const Request& request);

  // Set ahead of the first request: takes the sign-in page's callback URLs in the browser's stead,
  // for a desktop that does not know their scheme. Called on any thread, with the lock held.
  std::function<void(const std::string&)> handBack;

  // Writes "sample.json" and every picture it names into an existing folder; false on failure.
  bool writeSample(const std::string& folder);

 private:
  Reply route(const Request& request);
  // Lets `serve` answer with the lock held, and keeps what that changed before the answer leaves.
  Reply answerKept(const Request& request, Reply (Service::*serve)(const Request&));
  std::optional<Reply> refusedForNow(const Request& request);
  Reply kept(const Request& request, Reply reply);
  Reply serve(const Request& request);  // the contract
  Reply serveSignedIn(const Request& request, const std::string& me);
  Reply serveTicket(const Request& request, const std::string& id, const std::string& what,
                    const std::string& me);
  Reply serveTests(const Request& request);  // under /demo/
  Reply signInPage(const Request& request);
  Reply signedInPage(const Request& request);
  Reply sharePage(const std::string& key, bool embedded);
  Reply shareAnswer(const Request& request, const std::string& rest);
  // These take the lock themselves, and only for a moment.
  std::optional<Reply> shareFile(const Request& request);
  Reply proof(const std::string& ticket, std::optional<Int> version, bool repaired);
  Reply takeVersion(const Request& request, const std::string& id);
  std::expected<Upload, std::string> uploadOf(const Request& request);
  void wait(const Fault& fault);
  std::size_t log(const Request& head);
  void note(const Begun& begun, const std::function<void(LogEntry&)>& what);

  std::mutex mutex_;
  Pictures pictures_;
  std::unique_ptr<Shelf> shelf_;  // null where nothing is kept
  std::string trouble_;           // why what was done last could not be kept
  State state_;
  Faults faults_;
  Feed feed_;
  std::condition_variable released_;  // other faults were asked for
  std::mutex logMutex_;
  std::deque<LogEntry> log_;
  std::size_t logStart_ = 0;  // the number of the log's first entry
};

Reply errorReply(int status, const std::string& text);
// What Pictures found.
Reply pictureReply(std::optional<std::string> bytes);
template <class T>
Reply jsonReply(const T& value) {
  const auto json = encode(value);
  return json ? Reply{200, *json, "application/json", {}, false}
              : errorReply(500, "That answer could not be written.");
}
// The rest of `path` behind `prefix`; none when it does not begin with it.
std::optional<std::string> behind(const std::string& path, const std::string& prefix);

}  // namespace vellix::demo
