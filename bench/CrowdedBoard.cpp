#include "CrowdedBoard.hpp"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>

#include "BigBoard.hpp"
#include "BigTicket.hpp"
#include "BoardService.hpp"
#include "children.hpp"
#include "platform/qt/QtDefaults.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kOpenTickets = 12;  // those with details
constexpr QSize kThumb{120, 160};

std::string thumb() {
  QImage image(kThumb, QImage::Format_RGB32);
  image.fill(Qt::lightGray);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "JPEG");
  return bytes.toStdString();
}

}  // namespace

void Settings::name(const std::string& server) { QtDefaults().setText("ServerURL", server); }

int onCrowdedBoard(int argc, char** argv, const std::function<void(Actions& actions)>& work) {
  const Settings settings;
  const QGuiApplication application(argc, argv);
  BoardState board = bigBoard(kManyTickets);
  std::map<std::string, FileDetail> details;
  for (int i = 0; i < kOpenTickets; ++i) {
    const FileItem& file = board.files[static_cast<std::size_t>(i)];
    details[file.id] = i == 0 ? crowdedTicket(file) : smallTicket(file);
  }
  BoardService service(std::move(board), std::move(details), thumb());
  Settings::name(service.address());
  int changes = 0;
  Actions actions("bench", [&] {
    service.change([&](BoardState& all) { all.files.front().po = std::to_string(++changes); });
  });
  if (service.address().empty() || !layOutPictures() || !actions.begin()) {
    tellFault("the board of 10,000 tickets was never shown");
    return 1;
  }
  work(actions);
  return 0;
}

}  // namespace vellix::bench
