// Tells lint what the view values' fields are: copies the QML modules' type descriptions, and fills
// in the fields of every value that VELLIX_VIEW names. Run by script/lint.
//
//   vellix_view_fields FROM TO      folders of QML modules; what is in TO goes
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <regex>
#include <stdexcept>
#include <string>
#include <typeindex>
#include <vector>

#include "records/described.hpp"
#include "records/geometry.hpp"
#include "records/records.hpp"

namespace vellix {
namespace {

namespace files = std::filesystem;

std::map<std::type_index, std::string>& names() {
  static std::map<std::type_index, std::string> all;
  return all;
}

template <class T>
std::string typeOf() {
  if constexpr (isA<T, std::optional>) {
    return typeOf<typename T::value_type>();
  } else if constexpr (isA<T, std::vector>) {
    return "QVariantList";
  } else if constexpr (std::is_same_v<T, Box>) {
    return "QRectF";
  } else if constexpr (std::is_same_v<T, Spot>) {
    return "QPointF";
  } else if constexpr (std::is_same_v<T, Extent>) {
    return "QSizeF";
  } else if constexpr (Described<T>) {
    const auto name = names().find(typeid(T));
    if (name == names().end()) {
      throw std::runtime_error(std::string{"no VELLIX_VIEW names "} + typeid(T).name());
    }
    return "Qml<" + name->second + ">";
  } else if constexpr (std::is_same_v<T, std::string>) {
    return "QString";
  } else if constexpr (std::is_same_v<T, bool>) {
    return "bool";
  } else if constexpr (std::is_floating_point_v<T>) {
    return "double";
  } else {
    static_assert(std::is_integral_v<T>, "a field that QML has no type for");
    return "int";
  }
}

template <Described T>
std::string fieldsOf() {
  std::string fields;
  forEachMember<T>([&](auto member) {
    using Field = std::remove_cvref_t<decltype(std::declval<T>().*member.pointer)>;
    fields += "        Property { name: \"" + std::string{member.name} + "\"; type: \"" +
              typeOf<Field>() + "\"; isReadonly: true }\n";
  });
  return fields;
}

// By the name of the type: how its fields are written, once all names are known.
std::map<std::string, std::string (*)()>& views() {
  static std::map<std::string, std::string (*)()> all;
  return all;
}

template <Described T>
struct Named {
  explicit Named(const char* name) {
    names().emplace(typeid(T), name);
    views().emplace("Qml<" + std::string{name} + ">", &fieldsOf<T>);
  }
};

// The fields follow the name that a type's description begins with. A list is any list to lint.
std::string filledIn(std::istream& types) {
  static const std::regex list{R"(type: "Qml<std::vector<\w+>>")"};
  const std::string start = "        name: \"";
  std::string out;
  for (std::string line; std::getline(types, line);) {
    out += std::regex_replace(line, list, R"(type: "QVariantList")") + "\n";
    if (!line.starts_with(start) || !line.ends_with('"')) continue;
    const auto view = views().find(line.substr(start.size(), line.size() - start.size() - 1));
    if (view != views().end()) out += view->second();
  }
  return out;
}

void fillIn(const files::path& from, const files::path& to) {
  files::remove_all(to);
  files::copy(from, to, files::copy_options::recursive);
  for (const auto& entry : files::recursive_directory_iterator(to)) {
    if (entry.path().extension() != ".qmltypes") continue;
    std::ifstream types(entry.path());
    const std::string filled = filledIn(types);
    std::ofstream(entry.path(), std::ios::trunc) << filled;
  }
}

}  // namespace
}  // namespace vellix

#define VELLIX_VIEW(View, name) static const Named<View> name##Named{#View};
#include "view_types.inc"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "vellix_view_fields FROM TO\n";
    return 2;
  }
  try {
    vellix::fillIn(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
