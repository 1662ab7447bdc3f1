"""The check above must see each write from outside, and nothing where all is well."""

import unittest

from store_keeps_its_fields import complaints, fields_of

HEADER = """class Store {
  Changes changes;
  Published<bool> signedIn;
  Published<std::map<std::string, Int>> page{changes, kPage};  // ticket id to page
  Prefs& prefs;
  bool sample = false;
"""


class Complaints(unittest.TestCase):
    def of(self, text, path="board/a.cpp"):
        return complaints({"store/store.hpp": HEADER, path: text})

    def test_finds_the_fields_in_the_header(self):
        self.assertEqual(fields_of(HEADER), ["signedIn", "page"])

    def test_is_quiet_where_fields_are_read(self):
        self.assertEqual(self.of("""
            if (store.page().empty() || !(*store)->signedIn()) return;  // store.page.set is not ours
            prefs_.appearance.set("dark");
            page.set(3);
            waiting.set(store().page().size());
            view.page = pageIndex(store, file);
            store.changes.observe(Store::kPage);
        """), [])

    def test_is_quiet_about_the_store_itself(self):
        self.assertEqual(self.of("store.page.set({});", "store/selection.cpp"), [])

    def test_sees_each_write(self):
        for text in ("store.page.set({});", "store_.page.edit(change);", "store().page\n.set({});",
                     "(*store)->signedIn.set(false);", "desk.page.set({});", "it->page.edit(f);",
                     "auto& page = store_.page;", "write(&Store::signedIn);", "turn(store.page);"):
            self.assertEqual(len(self.of(text)), 1, text)

    def test_sees_a_header_without_fields(self):
        self.assertTrue(complaints({"store/store.hpp": "class Store;", "board/a.cpp": ""}))


if __name__ == "__main__":
    unittest.main()
