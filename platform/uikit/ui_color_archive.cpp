#include "platform/uikit/ui_color_archive.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view archiverKey = "$archiver";
constexpr std::string_view archiver = "NSKeyedArchiver";
constexpr std::string_view versionKey = "$version";
constexpr std::int64_t archiveVersion = 100000;
constexpr std::string_view topKey = "$top";
constexpr std::string_view rootKey = "root";
constexpr std::string_view objectsKey = "$objects";
constexpr std::string_view null = "$null";
constexpr std::string_view classKey = "$class";
constexpr std::string_view classNameKey = "$classname";
constexpr std::string_view classesKey = "$classes";
constexpr std::string_view className = "UIColor";
constexpr std::string_view rootClassName = "NSObject";

constexpr std::string_view countKey = "UIColorComponentCount";
constexpr std::string_view colorSpaceKey = "NSColorSpace";
constexpr std::string_view doubleSuffix = "-Double";
constexpr std::string_view alphaKey = "UIAlpha";
constexpr CGFloat opaque = 1;

/// One of the two forms: its components' keys, without alpha, and the key of the same numbers as text.
struct Form {
  std::span<const std::string_view> componentKeys;
  std::string_view textKey;
  std::int64_t colorSpace;

  std::int64_t componentCount() const { return static_cast<std::int64_t>(componentKeys.size()) + 1; }
};

constexpr std::array<std::string_view, 3> colorKeys = {"UIRed", "UIGreen", "UIBlue"};
constexpr std::array<std::string_view, 1> whiteKeys = {"UIWhite"};
constexpr Form colorForm = {colorKeys, "NSRGB", 2};
constexpr Form whiteForm = {whiteKeys, "NSWhite", 4};

using Components = std::vector<CGFloat>;

template <class T>
const T* findAs(const PropertyListDictionary& dictionary, std::string_view key) {
  const PropertyList* value = find(dictionary, key);
  return value ? value->as<T>() : nullptr;
}

bool isText(const PropertyList* value, std::string_view text) {
  auto* string = value ? value->as<std::string>() : nullptr;
  return string && *string == text;
}

// --- Reading
// -------------------------------------------------------------------------------------------------

/// The dictionary that a reference under `key` points to, or null.
const PropertyListDictionary* referred(const PropertyListDictionary& dictionary, std::string_view key,
                                       const PropertyListArray& objects) {
  auto* uid = findAs<PropertyListUid>(dictionary, key);
  return uid && uid->index < objects.size() ? objects[uid->index].as<PropertyListDictionary>() : nullptr;
}

bool isColorClass(const PropertyListDictionary& cls) {
  if (isText(find(cls, classNameKey), className)) return true;
  auto* ancestry = findAs<PropertyListArray>(cls, classesKey);
  return ancestry && std::any_of(ancestry->begin(), ancestry->end(),
                                 [](const PropertyList& name) { return isText(&name, className); });
}

/// The archived colour's own dictionary, or null when the archive holds none. It belongs to `archive`.
const PropertyListDictionary* rootColor(const PropertyListDictionary& archive) {
  auto* version = findAs<std::int64_t>(archive, versionKey);
  if (!isText(find(archive, archiverKey), archiver) || !version || *version != archiveVersion) return nullptr;
  auto* top = findAs<PropertyListDictionary>(archive, topKey);
  auto* objects = findAs<PropertyListArray>(archive, objectsKey);
  if (!top || !objects) return nullptr;
  const PropertyListDictionary* root = referred(*top, rootKey, *objects);
  const PropertyListDictionary* cls = root ? referred(*root, classKey, *objects) : nullptr;
  return cls && isColorClass(*cls) ? root : nullptr;
}

/// The value of a component's key, in plain or in wider spelling; null when it has neither.
const PropertyList* findComponent(const PropertyListDictionary& object, std::string_view key) {
  const PropertyList* plain = find(object, key);
  return plain ? plain : find(object, std::string(key) + std::string(doubleSuffix));
}

/// The number under a component's key. Something else there spoils the archive: it reads as out of range.
std::optional<CGFloat> componentOf(const PropertyListDictionary& object, std::string_view key) {
  constexpr CGFloat spoilt = -1;
  const PropertyList* value = findComponent(object, key);
  if (!value) return std::nullopt;
  return value->as<bool>() ? spoilt : value->floatValue().value_or(spoilt);
}

/// The numbers of a text such as "1 0.5 0"; nothing when there is anything else in it.
std::optional<Components> parseComponents(const NSData& data) {
  std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
  text = text.substr(0, text.find('\0'));
  Components components;
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.empty()) return components;
    CGFloat number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (!text.empty() && text.front() != ' ') return std::nullopt;
    components.push_back(number);
  }
}

/// The form that an archive says it has or, where it does not say, that its keys show; null for neither.
const Form* formOf(const PropertyListDictionary& object) {
  const std::array forms = {&colorForm, &whiteForm};
  const PropertyList* count = find(object, countKey);
  auto form = std::find_if(forms.begin(), forms.end(), [&](const Form* candidate) {
    if (count) return *count == PropertyList(candidate->componentCount());
    return findComponent(object, candidate->componentKeys.front()) || find(object, candidate->textKey);
  });
  return form == forms.end() ? nullptr : *form;
}

bool areInRange(const Components& components) {
  return std::all_of(components.begin(), components.end(),
                     [](CGFloat component) { return component >= 0 && component <= 1; });
}

/// The form's components and alpha, from the numbers or, where one is missing, from the text.
std::optional<Components> componentsOf(const PropertyListDictionary& object, const Form& form) {
  const std::size_t count = form.componentKeys.size();
  Components components;
  for (std::string_view key : form.componentKeys) {
    if (auto component = componentOf(object, key)) components.push_back(*component);
  }
  if (!areInRange(components)) return std::nullopt;
  if (components.size() < count) {
    auto* text = findAs<NSData>(object, form.textKey);
    auto parsed = text ? parseComponents(*text) : std::nullopt;
    if (!parsed || parsed->size() < count || parsed->size() > count + 1) return std::nullopt;
    components = std::move(*parsed);
  }
  const CGFloat alphaOfText = components.size() > count ? components.back() : opaque;
  components.resize(count);
  components.push_back(componentOf(object, alphaKey).value_or(alphaOfText));
  return areInRange(components) ? std::optional(components) : std::nullopt;
}

// --- Writing
// -------------------------------------------------------------------------------------------------

PropertyList textData(const Components& components, CGFloat alpha) {
  std::string text = fmt::format("{}", fmt::join(components, " "));
  if (alpha != opaque) text += fmt::format(" {}", alpha);
  return NSData(text.begin(), text.end());
}

PropertyListDictionary objectOf(const Form& form, const Components& components, CGFloat alpha,
                                PropertyListUid cls) {
  PropertyListDictionary object;
  const auto set = [&object](std::string_view key, PropertyList value) {
    object.emplace(key, std::move(value));
  };
  for (std::size_t i = 0; i < components.size(); ++i) set(form.componentKeys[i], double{components[i]});
  set(alphaKey, double{alpha});
  set(countKey, form.componentCount());
  set(form.textKey, textData(components, alpha));
  set(colorSpaceKey, form.colorSpace);
  set(classKey, cls);
  return object;
}

PropertyList text(std::string_view value) { return std::string(value); }

}  // namespace

NSData archivedDataWithRootObject(const UIColor& color) {
  constexpr PropertyListUid colorPlace = {1};  // Places in the list of objects below.
  constexpr PropertyListUid classPlace = {2};
  const CGColor value = color.cgColor();
  const PropertyListDictionary object =
      color.isGray() ? objectOf(whiteForm, {value.red}, value.alpha, classPlace)
                     : objectOf(colorForm, {value.red, value.green, value.blue}, value.alpha, classPlace);
  const PropertyListDictionary cls = {
      {std::string(classNameKey), text(className)},
      {std::string(classesKey), PropertyListArray{text(className), text(rootClassName)}}};
  const PropertyListDictionary archive = {
      {std::string(archiverKey), text(archiver)},
      {std::string(versionKey), archiveVersion},
      {std::string(topKey), PropertyListDictionary{{std::string(rootKey), colorPlace}}},
      {std::string(objectsKey), PropertyListArray{text(null), object, cls}}};
  return dataWithPropertyList(archive, PropertyListFormat::Binary);
}

std::optional<UIColor> unarchiveColorWithData(const NSData& data) {
  const auto list = propertyListWithData(data);
  auto* archive = list ? list->as<PropertyListDictionary>() : nullptr;
  const PropertyListDictionary* object = archive ? rootColor(*archive) : nullptr;
  const Form* form = object ? formOf(*object) : nullptr;
  const auto components = form ? componentsOf(*object, *form) : std::nullopt;
  if (!components) return std::nullopt;
  const CGFloat alpha = components->back();
  if (form == &whiteForm) return UIColor::colorWithWhite(components->front(), alpha);
  return UIColor::colorWithRed((*components)[0], (*components)[1], (*components)[2], alpha);
}
