#include "platform/uikit/ui_color_archive.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kArchiverKey = "$archiver";
constexpr std::string_view kArchiver = "NSKeyedArchiver";
constexpr std::string_view kVersionKey = "$version";
constexpr std::int64_t kVersion = 100000;
constexpr std::string_view kTopKey = "$top";
constexpr std::string_view kRootKey = "root";
constexpr std::string_view kObjectsKey = "$objects";
constexpr std::string_view kNull = "$null";
constexpr std::string_view kClassKey = "$class";
constexpr std::string_view kClassNameKey = "$classname";
constexpr std::string_view kClassesKey = "$classes";
constexpr std::string_view kClassName = "UIColor";
constexpr std::string_view kRootClassName = "NSObject";

constexpr std::string_view kCountKey = "UIColorComponentCount";
constexpr std::string_view kColorSpaceKey = "NSColorSpace";
constexpr std::string_view kDoubleSuffix = "-Double";
constexpr std::string_view kAlphaKey = "UIAlpha";
constexpr CGFloat kOpaque = 1;

/// One of the two forms: its components' keys, without alpha, and the key of the same numbers as text.
struct Form {
  std::span<const std::string_view> componentKeys;
  std::string_view textKey;
  std::int64_t colorSpace;

  std::int64_t componentCount() const { return static_cast<std::int64_t>(componentKeys.size()) + 1; }
};

constexpr std::array<std::string_view, 3> kColorKeys = {"UIRed", "UIGreen", "UIBlue"};
constexpr std::array<std::string_view, 1> kWhiteKeys = {"UIWhite"};
constexpr Form kColorForm = {kColorKeys, "NSRGB", 2};
constexpr Form kWhiteForm = {kWhiteKeys, "NSWhite", 4};

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
  if (isText(find(cls, kClassNameKey), kClassName)) return true;
  auto* ancestry = findAs<PropertyListArray>(cls, kClassesKey);
  return ancestry && std::any_of(ancestry->begin(), ancestry->end(),
                                 [](const PropertyList& name) { return isText(&name, kClassName); });
}

/// The archived colour's own dictionary, or null when the archive holds none. It belongs to `archive`.
const PropertyListDictionary* rootColor(const PropertyListDictionary& archive) {
  auto* version = findAs<std::int64_t>(archive, kVersionKey);
  if (!isText(find(archive, kArchiverKey), kArchiver) || !version || *version != kVersion) return nullptr;
  auto* top = findAs<PropertyListDictionary>(archive, kTopKey);
  auto* objects = findAs<PropertyListArray>(archive, kObjectsKey);
  if (!top || !objects) return nullptr;
  const PropertyListDictionary* root = referred(*top, kRootKey, *objects);
  const PropertyListDictionary* cls = root ? referred(*root, kClassKey, *objects) : nullptr;
  return cls && isColorClass(*cls) ? root : nullptr;
}

/// The value of a component's key, in plain or in wider spelling; null when it has neither.
const PropertyList* findComponent(const PropertyListDictionary& object, std::string_view key) {
  const PropertyList* plain = find(object, key);
  return plain ? plain : find(object, std::string(key) + std::string(kDoubleSuffix));
}

/// The number under a component's key. Something else there spoils the archive: it reads as out of range.
std::optional<CGFloat> componentOf(const PropertyListDictionary& object, std::string_view key) {
  constexpr CGFloat kSpoilt = -1;
  const PropertyList* value = findComponent(object, key);
  if (!value) return std::nullopt;
  return value->as<bool>() ? kSpoilt : value->floatValue().value_or(kSpoilt);
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
  const std::array forms = {&kColorForm, &kWhiteForm};
  const PropertyList* count = find(object, kCountKey);
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
  const CGFloat alphaOfText = components.size() > count ? components.back() : kOpaque;
  components.resize(count);
  components.push_back(componentOf(object, kAlphaKey).value_or(alphaOfText));
  return areInRange(components) ? std::optional(components) : std::nullopt;
}

// --- Writing
// -------------------------------------------------------------------------------------------------

PropertyList textData(const Components& components, CGFloat alpha) {
  std::string text = fmt::format("{}", fmt::join(components, " "));
  if (alpha != kOpaque) text += fmt::format(" {}", alpha);
  return NSData(text.begin(), text.end());
}

PropertyListDictionary objectOf(const Form& form, const Components& components, CGFloat alpha,
                                PropertyListUid cls) {
  PropertyListDictionary object;
  const auto set = [&object](std::string_view key, PropertyList value) {
    object.emplace(key, std::move(value));
  };
  for (std::size_t i = 0; i < components.size(); ++i) set(form.componentKeys[i], double{components[i]});
  set(kAlphaKey, double{alpha});
  set(kCountKey, form.componentCount());
  set(form.textKey, textData(components, alpha));
  set(kColorSpaceKey, form.colorSpace);
  set(kClassKey, cls);
  return object;
}

PropertyList text(std::string_view value) { return std::string(value); }

}  // namespace

NSData archivedDataWithRootObject(const UIColor& color) {
  constexpr PropertyListUid kColor = {1};  // Places in the list of objects below.
  constexpr PropertyListUid kClass = {2};
  const CGColor value = color.cgColor();
  const PropertyListDictionary object =
      color.isGray() ? objectOf(kWhiteForm, {value.red}, value.alpha, kClass)
                     : objectOf(kColorForm, {value.red, value.green, value.blue}, value.alpha, kClass);
  const PropertyListDictionary cls = {
      {std::string(kClassNameKey), text(kClassName)},
      {std::string(kClassesKey), PropertyListArray{text(kClassName), text(kRootClassName)}}};
  const PropertyListDictionary archive = {
      {std::string(kArchiverKey), text(kArchiver)},
      {std::string(kVersionKey), kVersion},
      {std::string(kTopKey), PropertyListDictionary{{std::string(kRootKey), kColor}}},
      {std::string(kObjectsKey), PropertyListArray{text(kNull), object, cls}}};
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
  if (form == &kWhiteForm) return UIColor::colorWithWhite(components->front(), alpha);
  return UIColor::colorWithRed((*components)[0], (*components)[1], (*components)[2], alpha);
}
