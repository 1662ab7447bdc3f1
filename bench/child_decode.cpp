// Decoding a big board, against the bare parse and a copy of the records that come out.
#include <simdjson.h>

#include "BigBoard.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "records/json.hpp"
#include "report.hpp"

namespace vellix::bench {

int decodeChild() {
  const BoardState board = bigBoard(kManyTickets);
  const auto json = encode(board);
  if (!json) {
    tellFault("the board cannot be encoded: " + json.error().why);
    return 1;
  }
  const auto& files = std::as_const(board).files;
  bool same = true;
  const auto ours = [&] {
    const double start = cpuOfThread();
    const auto decoded = decode<BoardState>(*json);
    const double took = cpuOfThread() - start;
    same = same && decoded && *decoded == board;
    return took;
  };
  const auto bare = [&] {
    const double start = cpuOfThread();
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    const auto error = parser.parse(json->data(), json->size()).get(root);
    const std::vector<FileItem> copy(files.begin(), files.end());
    const double took = cpuOfThread() - start;
    same = same && !error && copy.size() == files.size();
    return took;
  };
  const auto [our, their] = alternate(ours, bare, 21);
  tell({"decode a board of 10,000 tickets (CPU)", our, their, "ms", 1.5});
  tellNote("The board of 10,000 tickets is " + std::to_string(json->size() / 1000) +
           " kB of JSON.");
  if (!same) tellFault("the big board does not come out as it went in");
  return 0;
}

}  // namespace vellix::bench
