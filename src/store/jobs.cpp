// Asking the worker on the Mac mini for work, and stopping it. The jobs come back with the board.
#include "store/store_tell.hpp"

namespace vellix {
namespace {

struct SyncBody {
  std::string kind;
};
BOOST_DESCRIBE_STRUCT(SyncBody, (), (kind))

struct ReportBody {
  std::string kind;
  std::vector<std::string> file_ids;
};
BOOST_DESCRIBE_STRUCT(ReportBody, (), (kind, file_ids))

}  // namespace

void Store::requestSync() {
  action("sync", "Asked the Mac mini to sync.",
         [this] { return tell("api/jobs", SyncBody{"sync"}); });
}

void Store::requestReport(std::vector<std::string> fileIDs) {
  action("report", "Asked the Mac mini for the report.",
         [this, ids = std::move(fileIDs)] { return tell("api/jobs", ReportBody{"report", ids}); });
}

void Store::stopJob(const Job& job) {
  action("stop-" + job.id, "Stopping.",
         [this, path = "api/jobs/" + job.id + "/stop"] { return tell(path, NoBody{}); });
}

}  // namespace vellix
