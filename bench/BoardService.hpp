// The service's side of a board that is held in memory, on a free port of 127.0.0.1, answered from
// threads of its own.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "records/records.hpp"

namespace httplib {
class Server;
struct Request;
struct Response;
}  // namespace httplib

namespace vellix::bench {

class BoardService {
 public:
  // Tickets without details have none to be had. `picture` is what any picture is, as a JPEG.
  BoardService(BoardState board, std::map<std::string, FileDetail> details, std::string picture);
  ~BoardService();
  BoardService(const BoardService&) = delete;
  BoardService& operator=(const BoardService&) = delete;

  const std::string& address() const { return address_; }  // empty when it could not listen
  // From any thread: another board is to be had from now on.
  void change(const std::function<void(BoardState&)>& work);

 private:
  void tellBoard(const httplib::Request& request, httplib::Response& response);
  void tellDetail(const httplib::Request& request, httplib::Response& response);
  void decide(const httplib::Request& request, httplib::Response& response);
  void changed(const std::string& ticket);

  std::mutex mutex_;
  BoardState board_;
  std::map<std::string, FileDetail> details_;
  std::string encoded_;  // the board; empty once it is another one
  std::unique_ptr<httplib::Server> server_;
  std::string address_;
  std::thread thread_;
};

}  // namespace vellix::bench
