#include "Actions.hpp"

#include <algorithm>

#include "BigTicket.hpp"
#include "store/open_page.hpp"

namespace vellix::bench {
namespace {

constexpr int kPagesStepped = 4;  // to and fro among the first so many
constexpr int kRowsChosen = 4;

Task<> refresh(Store& store, bool* going) {
  auto poll = store.refresh();
  co_await std::move(poll);
  *going = false;
}

std::optional<double> costIf(bool happened, const Cost& cost) {
  return happened && cost.frames > 0 ? std::optional{cost.worst} : std::nullopt;
}

}  // namespace

bool Actions::begin() {
  if (!desk_.shown()) return false;
  const auto up = [this] {
    const RemoteImage* page = desk_.page();
    return page && page->ready() && desk_.store().currentDetail();
  };
  if (!waitUntil(up, 20'000, 20) || !desk_.frames().settle()) return false;
  hand_.emplace(desk_.window());
  costs_.emplace(desk_.frames(), [this] {
    const RemoteImage* page = desk_.page();
    return desk_.store().busy().empty() && !polling_ && (!page || page->ready());
  });
  findOpeners();
  return costs_->rest();
}

std::array<Actions::Kind, kKinds> Actions::kinds() {
  const auto kind = [this](const char* name, std::optional<double> (Actions::*work)(int)) {
    return Kind{name, [this, work](int n) { return (this->*work)(n); }};
  };
  return {{kind("page step", &Actions::stepPage), kind("decide a finding", &Actions::decide),
           kind("select a ticket at hand", &Actions::select),
           kind("open a popover or a menu", &Actions::open),
           kind("switch the mode", &Actions::changeMode), kind("type a letter", &Actions::type),
           kind("a poll that changes one ticket", &Actions::poll)}};
}

QQuickItem* Actions::find(const std::function<bool(QQuickItem*)>& wanted) {
  return findItem(desk_.window()->contentItem(),
                  [&](QQuickItem* item) { return wanted(item) && inSight(item); });
}

QQuickItem* Actions::find(QByteArrayView type, const char* property, const QString& value) {
  return find([&](QQuickItem* item) {
    return isA(item, type) && item->property(property).toString() == value;
  });
}

Cost Actions::press(QQuickItem* item) {
  if (!item) return {};
  hand_->moveTo(item);
  costs_->rest();
  Hand::look();
  return costs_->of([this] { hand_->press(); });
}

Cost Actions::key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  return costs_->of([&] { hand_->key(key, modifiers, text); });
}

QQuickItem* Actions::noteField() {
  QQuickItem* field = findItem(desk_.window()->contentItem(), [](QQuickItem* item) {
    return isA(item, "TextArea") && item->property("label") == "Write a note for the report";
  });
  if (!bringIn(field)) return nullptr;
  press(field);
  return field;
}

bool Actions::bringIn(QQuickItem* item) {
  QQuickItem* around = item;
  while (around && !around->property("contentY").isValid()) around = around->parentItem();
  if (!around) return false;
  const double end = around->property("contentHeight").toDouble() - around->height();
  const double at = around->property("contentY").toDouble() +
                    item->mapToItem(around, QPointF{}).y() - around->height() / 2;
  around->setProperty("contentY", std::clamp(at, 0.0, std::max(0.0, end)));
  costs_->rest();
  return true;
}

void Actions::goTo(int page) {
  Store& store = desk_.store();
  if (const FileItem* file = store.currentFile()) store.goToPage(file->id, page);
  costs_->rest();
}

int Actions::pages() {
  const FileDetail* detail = desk_.store().currentDetail();
  return detail && detail->file.pages ? static_cast<int>(detail->file.pages->size()) : 0;
}

int Actions::page() {
  const FileDetail* detail = desk_.store().currentDetail();
  return detail ? static_cast<int>(pageIndex(desk_.store(), detail->file)) : -1;
}

std::optional<double> Actions::stepPage(int n) {
  if (n == 0) goTo(0);
  const int before = page();
  if (before == 0) way_ = 1;
  if (before >= std::min(kPagesStepped, pages()) - 1) way_ = -1;
  const Cost cost = press(find("IconButton", "help", way_ > 0 ? "Next page" : "Previous page"));
  return costIf(page() == before + way_, cost);
}

const Finding* Actions::findingOf(const QQuickItem* inCard) {
  while (inCard && !isA(inCard, "FindingCard")) inCard = inCard->parentItem();
  const FileDetail* detail = desk_.store().currentDetail();
  if (!inCard || !detail) return nullptr;
  const auto found = std::ranges::find(
      detail->findings, inCard->property("id").toString().toStdString(), &Finding::id);
  return found == detail->findings.end() ? nullptr : &*found;
}

// It is open again before the next one.
std::optional<double> Actions::decide(int n) {
  if (n == 0) goTo(pages() > kFullPage ? kFullPage : 0);
  QQuickItem* button = find([](QQuickItem* item) {
    return isA(item, "StateButton") && item->property("title") == "Fine" &&
           item->property("decision") == "open";
  });
  const Finding* found = button ? findingOf(button) : nullptr;
  if (!found) return std::nullopt;
  Finding finding = *found;
  const Cost cost = press(button);
  const auto& findings = desk_.store().currentDetail()->findings;
  const auto now = std::ranges::find(findings, finding.id, &Finding::id);
  const bool decided = now != findings.end() && now->state == "fine";
  desk_.store().setFindingState(finding, "open");
  costs_->rest();
  return costIf(decided, cost);
}

// Those that were chosen before, so that they are at hand.
std::optional<double> Actions::select(int n) {
  const auto choose = [this](int which) {
    std::vector<QQuickItem*> rows;
    find([&](QQuickItem* item) {
      if (isA(item, "FileRow") && inSight(item)) rows.push_back(item);
      return false;
    });
    std::ranges::sort(rows, {}, [](QQuickItem* row) { return row->mapToScene({}).y(); });
    return press(which < std::ssize(rows) ? rows[static_cast<std::size_t>(which)] : nullptr);
  };
  for (int i = 1; n == 0 && i <= kRowsChosen; ++i) choose(i % kRowsChosen);
  const auto before = desk_.store().selection();
  const Cost cost = choose((n + 1) % kRowsChosen);
  return costIf(desk_.store().selection() != before, cost);
}

void Actions::findOpeners() {
  openers_ = {{"AssignButton", nullptr, {}},        {"DueButton", nullptr, {}},
              {"ShareButton", nullptr, {}},         {"ActivityButton", nullptr, {}},
              {"ClaudeLogButton", nullptr, {}},     {"IconButton", "help", "Account"},
              {"IconButton", "help", "Tag people"}, {"IconButton", "help", "Edit or delete"}};
  if (!ownNotePage()) openers_.pop_back();
  for (const char* menu : {"Vellix", "Review", "View "}) {
    openers_.push_back({"MenuTitle", "label", menu});
  }
  for (const auto& person : desk_.store().board()->users) {
    openers_.push_back({"Pressable", "email", QString::fromStdString(person.email)});
  }
}

std::optional<int> Actions::ownNotePage() {
  const std::string& me = desk_.store().board()->me.email;
  for (const Note& note : desk_.store().currentDetail()->comments) {
    if (note.by == me && note.page && !note.finding_id && note.page != kFullPage) {
      return static_cast<int>(*note.page);
    }
  }
  return std::nullopt;
}

// Some stand where the page has to be gone to, the panel scrolled, or a field begun.
std::optional<double> Actions::open(int n) {
  const Opener& opener = openers_[static_cast<std::size_t>(n) % openers_.size()];
  const auto isIt = [&](QQuickItem* item) {
    return isA(item, opener.type) &&
           (!opener.property || item->property(opener.property).toString() == opener.value);
  };
  goTo(opener.value == "Edit or delete" ? ownNotePage().value_or(0) : 0);
  if (opener.value == "Tag people") noteField();
  QQuickItem* item = find(isIt);
  if (!item) {
    QQuickItem* apart = findItem(desk_.window()->contentItem(),
                                 [&](QQuickItem* each) { return isIt(each) && each->isVisible(); });
    if (bringIn(apart)) item = find(isIt);
  }
  const Cost cost = press(item);
  const bool opened = item && item->property("expanded").toBool();
  if (opened) hand_->key(Qt::Key_Escape);
  costs_->rest();
  return costIf(opened, cost);
}

std::optional<double> Actions::changeMode(int n) {
  constexpr const char* kModes[] = {"Overlay", "Blink", "Side by side"};
  const CompareMode before = desk_.store().mode();
  const Cost cost = press(find("Pressable", "label", kModes[n % 3]));
  return costIf(desk_.store().mode() != before, cost);
}

std::optional<double> Actions::type(int n) {
  if (n == 0) field_ = noteField();
  if (!field_) return std::nullopt;
  const int before = field_->property("length").toInt();
  const Cost cost = key(Qt::Key_A + n % 26, {}, QChar('a' + n % 26));
  return costIf(field_->property("length").toInt() == before + 1, cost);
}

std::optional<double> Actions::poll(int) {
  changeTicket_();
  const Int rev = desk_.store().board()->rev;
  const Cost cost = costs_->of([this] {
    polling_ = true;
    tasks_.start(refresh(desk_.store(), &polling_));
  });
  return costIf(desk_.store().board()->rev != rev, cost);
}

}  // namespace vellix::bench
