// Property lists as files: what is read of good ones, and that nothing is read of others.
#include "platform/linux/xml_property_list.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

namespace fs = std::filesystem;
using Text = std::optional<std::string>;

const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n";

std::string list(const std::string& entries) {
  return kHead + "<plist version=\"1.0\">\n<dict>\n" + entries + "\n</dict>\n</plist>\n";
}
const std::string kBuild = "<key>CFBundleVersion</key><string>41</string>";

class XmlPropertyListTest : public testing::Test {
 protected:
  std::string path() const { return root_.filePath("Info.plist").toStdString(); }
  Text read(const std::string& bytes) const {
    std::ofstream(path(), std::ios::binary) << bytes;
    return textInXmlPropertyList(path(), "CFBundleVersion");
  }

 private:
  QTemporaryDir root_;
};

struct Good {
  const char* name;
  std::string bytes;
  Text text;
};
BOOST_DESCRIBE_STRUCT(Good, (), (name))

class GoodLists : public XmlPropertyListTest, public testing::WithParamInterface<Good> {};

TEST_P(GoodLists, GiveTheirText) { EXPECT_EQ(read(GetParam().bytes), GetParam().text); }

// NOLINTBEGIN(cert-err58-cpp): what fails here fails the test.
INSTANTIATE_TEST_SUITE_P(
    , GoodLists,
    testing::Values(
        Good{"alone", list(kBuild), "41"},
        Good{"amongOthers",
             list("<key>A</key><true/><key>B</key><array><dict><key>CFBundleVersion</key>"
                  "<string>1</string></dict></array>" +
                  kBuild + "<key>C</key><dict><key>CFBundleVersion</key><string>2</string></dict>"),
             "41"},
        Good{"withComments", list("<!-- one -->" + kBuild + "<!-- two -->"), "41"},
        Good{"withoutAHead", "<plist><dict>" + kBuild + "</dict></plist>", "41"},
        Good{"asItStands", list("<key>CFBundleVersion</key><string> 12a\n&lt;燈&gt; </string>"),
             " 12a\n<燈> "},
        Good{"asRawText", list("<key>CFBundleVersion</key><string><![CDATA[4<1]]></string>"),
             "4<1"},
        Good{"empty", list("<key>CFBundleVersion</key><string/>"), ""},
        Good{"theLastOfTwo", list(kBuild + "<key>CFBundleVersion</key><string>42</string>"), "42"},
        Good{"noTextAtLast", list(kBuild + "<key>CFBundleVersion</key><integer>42</integer>"),
             std::nullopt},
        Good{"anInteger", list("<key>CFBundleVersion</key><integer>41</integer>"), std::nullopt},
        Good{"aList", list("<key>CFBundleVersion</key><array><string>41</string></array>"),
             std::nullopt},
        Good{"withoutTheKey", list("<key>CFBundleName</key><string>41</string>"), std::nullopt},
        Good{"deeper", list("<key>A</key><dict>" + kBuild + "</dict>"), std::nullopt},
        Good{"nothingInIt", list(""), std::nullopt}),
    [](const auto& tested) { return tested.param.name; });

struct Bad {
  const char* name;
  std::string bytes;
};
BOOST_DESCRIBE_STRUCT(Bad, (), (name))

class BadLists : public XmlPropertyListTest, public testing::WithParamInterface<Bad> {};

TEST_P(BadLists, GiveNone) { EXPECT_EQ(read(GetParam().bytes), std::nullopt); }

std::string manyEntities() {
  std::string head = "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaaaaaaaaaaaa\">";
  for (char each = 'b'; each < 'n'; ++each) {
    const std::string before = std::string("&") + static_cast<char>(each - 1) + ';';
    head += std::string("<!ENTITY ") + each + " \"";
    for (int i = 0; i < 20; ++i) head += before;
    head += "\">";
  }
  return head + "]><plist><dict><key>CFBundleVersion</key><string>&m;</string></dict></plist>";
}
std::string nested(int depth) {
  std::string open;
  std::string close;
  for (int i = 0; i < depth; ++i) {
    open += "<dict><key>A</key>";
    close += "</dict>";
  }
  return list("<key>A</key>" + open + close);
}

INSTANTIATE_TEST_SUITE_P(
    , BadLists,
    testing::Values(
        Bad{"empty", ""}, Bad{"noXml", "CFBundleVersion = 41;"},
        Bad{"binary", std::string("bplist00\xD1\x01\x02", 11)},
        Bad{"cutOff", list(kBuild).substr(0, list(kBuild).size() - 10)},
        Bad{"cutInTheText", list(kBuild).substr(0, list(kBuild).find("41") + 1)},
        Bad{"brokenFurtherOn", list(kBuild + "<key>A</key><string>&nothing;</string>")},
        Bad{"somethingBehindIt", list(kBuild) + "<plist/>"},
        Bad{"aSecondDictionary",
            "<plist><dict>" + kBuild + "</dict><dict>" + kBuild + "</dict></plist>"},
        Bad{"anotherRoot", "<list><dict>" + kBuild + "</dict></list>"},
        Bad{"noDictionary", "<plist><array>" + kBuild + "</array></plist>"},
        Bad{"noPlist", "<dict>" + kBuild + "</dict>"},
        Bad{"aTextWithoutAKey", list("<string>41</string>" + kBuild)},
        Bad{"aKeyWithoutAText", list("<key>A</key>" + kBuild)},
        Bad{"aKeyAtTheEnd", list(kBuild + "<key>A</key>")},
        Bad{"elementsInTheText", list("<key>CFBundleVersion</key><string>4<b>1</b></string>")},
        Bad{"noCharacters", list("<key>CFBundleVersion</key><string>\xFF\xFE</string>")},
        Bad{"anEntityOfEntities", manyEntities()},
        Bad{"aFileOfTheSystem",
            "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/hostname\">]><plist><dict>"
            "<key>CFBundleVersion</key><string>&a;</string></dict></plist>"},
        Bad{"deeply", nested(20'000)},
        Bad{"tooLarge", list("<!--" + std::string(1 << 20, 'x') + "-->" + kBuild)},
        // What is read of it would be a whole list.
        Bad{"tooLargeByItsEnd", list(kBuild) + std::string(1 << 20, '\n')}),
    [](const auto& tested) { return tested.param.name; });
// NOLINTEND(cert-err58-cpp)

TEST_F(XmlPropertyListTest, IsReadToItsBound) {
  const std::string rest = list("<!---->" + kBuild);
  EXPECT_EQ(read(list("<!--" + std::string((1 << 20) - rest.size(), 'x') + "-->" + kBuild)), "41");
}

TEST_F(XmlPropertyListTest, IsAFile) {
  EXPECT_EQ(textInXmlPropertyList(path(), "Key"), std::nullopt);
  ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
  EXPECT_EQ(textInXmlPropertyList(path(), "Key"), std::nullopt);
  fs::remove(path());
  fs::create_directory(path());
  EXPECT_EQ(textInXmlPropertyList(path(), "Key"), std::nullopt);
  EXPECT_EQ(textInXmlPropertyList("/dev/zero", "Key"), std::nullopt);
}

}  // namespace
}  // namespace vellix
