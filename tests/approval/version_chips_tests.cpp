#include "approval/version_chips.hpp"

#include <gmock/gmock.h>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class VersionChips : public ApprovalTest {
 protected:
  VersionChips() {
    file().supplier = "Halden Press";
    file().version = 3;
    publish();
    detail = detailOf(file());
    detail.versions = std::vector<Version>{versionOf(1), versionOf(2), versionOf(3)};
    (*detail.versions)[1].by = kJorvas;
  }
  std::vector<VersionChipView> chips() { return versionChips(store(), detail); }
  std::vector<Int> selected() {
    std::vector<Int> all;
    for (const auto& chip : chips()) {
      if (chip.selected) all.push_back(chip.n);
    }
    return all;
  }
  void press(Int n) {
    show(detail);
    pressVersion(store(), n);
    desk.time.run();
  }

  FileDetail detail;
};

TEST_F(VersionChips, AreOneAVersion) {
  (*detail.versions)[0].filename = "cover.pdf";
  (*detail.versions)[1].filename = "cover2.pdf";
  (*detail.versions)[1].note = "Fixed p25";
  (*detail.versions)[1].status = "failed";
  (*detail.versions)[2].status = "checking";
  EXPECT_THAT(chips(), ElementsAre(VersionChipView{.n = 1,
                                                   .badge = "v1",
                                                   .caption = "Halden Press proof",
                                                   .help = "cover.pdf",
                                                   .spoken = "v1, Halden Press proof"},
                                   VersionChipView{.n = 2,
                                                   .badge = "v2",
                                                   .caption = "Revision by Jorvas",
                                                   .failed = true,
                                                   .help = "Fixed p25",
                                                   .spoken = "v2, Revision by Jorvas, the check "
                                                             "failed"},
                                   VersionChipView{.n = 3,
                                                   .badge = "v3",
                                                   .caption = "Revision by Claude",
                                                   .selected = true,
                                                   .checking = true,
                                                   .help = "",
                                                   .spoken = "v3, Revision by Claude, being "
                                                             "checked"}));
}

TEST_F(VersionChips, AreOfTheSupplierWhoeverThatIs) {
  detail.file.supplier = " ";
  EXPECT_EQ(chips()[0].caption, "Supplier proof");
}

TEST_F(VersionChips, AreNoneWhereThereIsNothingToChooseFrom) {
  detail.versions = std::vector<Version>{versionOf(1)};
  EXPECT_THAT(chips(), IsEmpty());
  detail.versions = std::vector<Version>{};
  EXPECT_THAT(chips(), IsEmpty());
  detail.versions.reset();
  EXPECT_THAT(chips(), IsEmpty());
}

TEST_F(VersionChips, SelectWhatIsOnShow) {
  EXPECT_THAT(selected(), ElementsAre(3));
  detail.version = 2;
  EXPECT_THAT(selected(), ElementsAre(2));
  detail.version.reset();
  EXPECT_THAT(selected(), ElementsAre(3)) << "as the ticket has it";
  detail.file.version.reset();
  EXPECT_THAT(selected(), ElementsAre(1));
  detail.version = 9;
  EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(VersionChips, ShowAnOlderVersionAndTheNewestAgain) {
  (*detail.versions)[1].status = "failed";
  press(2);
  EXPECT_EQ(store().viewVersion(), (std::map<std::string, Int>{{"t1", 2}}));
  EXPECT_EQ(desk.http.count("GET api/files/t1?v=2"), 1U);
  press(3);
  EXPECT_THAT(store().viewVersion(), IsEmpty());
  EXPECT_EQ(desk.http.count("GET api/files/t1"), 2U);
}

TEST_F(VersionChips, ShowNothingThatIsNotThere) {
  press(7);
  EXPECT_THAT(store().viewVersion(), IsEmpty());
  store().selection.set({"t1", "t2"});
  press(2);
  EXPECT_THAT(store().viewVersion(), IsEmpty());
  EXPECT_THAT(desk.http.exchanges, IsEmpty());
}

}  // namespace
}  // namespace vellix
