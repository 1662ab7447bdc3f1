// The notes that stand on the pages when the service starts.
#include <cmath>

#include "clock.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

struct Written {
  const char* ticket;
  const char* id;
  std::optional<Int> page;  // none for a note on the ticket
  const char* by;
  double hoursAgo;
  const char* text;
  const char* side = nullptr;
  std::vector<double> place;  // x and y of a point; w and h too of an area
  const char* tags = nullptr;
  bool resolved = false;
};

// Points and areas on either side, a word about a page or the ticket, and what is settled.
const std::vector<Written>& writings() {
  static const std::vector<Written> all = {
      {"salt-text",
       "n-folio",
       2,
       kJorvas,
       0.2,
       "Is this the old file? The folio moved as well.",
       "supplier",
       {0.5, 0.935}},
      {"salt-text",
       "n-running-head",
       2,
       kRenny,
       18,
       "The running head goes in the next printing. Leave it for now.",
       "ours",
       {0.28, 0.035, 0.46, 0.04}},
      {"salt-text",
       "n-gap",
       2,
       kRenny,
       19,
       "The gap after this word looked wide on screen.",
       "supplier",
       {0.74, 0.52},
       nullptr,
       true},
      {"salt-text",
       "n-plate",
       4,
       kRenny,
       20,
       "Ask Halden to place the art anew.",
       "supplier",
       {0.16, 0.12, 0.7, 0.4}},
      {"salt-text",
       "n-plate-ours",
       4,
       kJorvas,
       19.5,
       "It stood here, to the line.",
       "ours",
       {0.14, 0.11}},
      {"salt-text",
       "n-plate-corner",
       4,
       kJorvas,
       2,
       "And this corner touches the text.",
       "supplier",
       {0.86, 0.5}},
      {"salt-text",
       "n-tag",
       5,
       kJorvas,
       3,
       "Renny, is this the font they had trouble with before?",
       nullptr,
       {},
       kRenny},
      {"salt-text", "n-ticket", std::nullopt, kRenny, 21, "Halden wants this back by the weekend."},
      {"lanterns-cover",
       "n-medal",
       0,
       kRenny,
       3,
       "Told Orient Press about the fifth ink.",
       "supplier",
       {0.85, 0.76}},
      {"lanterns-cover",
       "n-number",
       1,
       kJorvas,
       2.5,
       "Compare it with the number on the flap.",
       "ours",
       {0.62, 0.8, 0.29, 0.13}},
      {"letter-cover",
       "n-seal",
       0,
       kMira,
       6.1,
       "The seal wants to sit in the middle of the flap.",
       "supplier",
       {0.5, 0.6}},
      {"bread-cover",
       "n-done",
       1,
       kJorvas,
       4,
       "Told Kestrel about the number.",
       nullptr,
       {},
       nullptr,
       true},
      {"lanterns-large",
       "n-widow",
       44,
       kJorvas,
       12,
       "A single word on the last line.",
       "supplier",
       {0.14, 0.6, 0.3, 0.03}},
  };
  return all;
}

}  // namespace

void State::openNotes() {
  for (const Written& written : writings()) {
    Note note;
    note.id = written.id;
    note.file_id = written.ticket;
    note.page = written.page;
    note.text = written.text;
    note.by = written.by;
    note.at = std::round(now_ - written.hoursAgo * kHour);
    if (written.side != nullptr) note.side = written.side;
    if (written.tags != nullptr) note.tags = std::vector<std::string>{written.tags};
    if (written.place.size() >= 2) {
      note.x = written.place[0];
      note.y = written.place[1];
    }
    if (written.place.size() == 4) {
      note.w = written.place[2];
      note.h = written.place[3];
    }
    if (written.resolved) {
      note.resolved = 1;
      note.resolved_by = written.by;
    }
    Ticket& ticket = *find(written.ticket);
    ticket.notes.push_back({note, ticket.newest().record.n});
  }
}

}  // namespace vellix::demo
