// Where notes on the open page, and at a place of it, are written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/store.hpp"

namespace vellix {

struct ComposerView {
  std::string title;
  std::string hint;    // empty where the page takes no clicks
  std::string post;    // on its button
  std::string widest;  // that may be on it: it holds that room
  bool posting = false;
  bool operator==(const ComposerView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ComposerView, (), (title, hint, post, widest, posting))

ComposerView composer(const Store& store, const FileDetail& detail);

// The note that is being written at a place of the open page.
struct DraftCardView {
  bool here = false;
  std::string title;
  bool operator==(const DraftCardView&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftCardView, (), (here, title))

std::string draftTitle(const DraftNote& draft, const std::string& pageName);
DraftCardView draftCard(const Store& store, const FileDetail& detail);
// What is being written to the one is meant for the other as well, though it may have moved.
bool samePage(const std::optional<DraftNote>& one, const std::optional<DraftNote>& other);

bool isBlank(std::string_view text);
// On the open page as a whole; a note begun at a place of it goes on. False when nothing is posted.
bool postNote(Store& store, const std::string& text, std::vector<std::string> tags);
// At the draft's place, which ends with it.
bool postDraft(Store& store, const std::string& text, std::vector<std::string> tags);

}  // namespace vellix
