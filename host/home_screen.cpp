#include "host/home_screen.h"

#include <algorithm>

#include "host/device_pictures.h"

namespace host {
namespace {

/// What the dock holds, from left to right, where it is installed.
constexpr const char* dockIdentifiers[dockCapacity] = {"com.example.phone", "com.example.mail",
                                                       "com.example.messages", "com.example.music"};

std::vector<SBApplication*> dockApplications(const AppCatalogue& catalogue) {
  std::vector<SBApplication*> result;
  for (const char* identifier : dockIdentifiers)
    if (Application* application = catalogue.find(std::string(identifier))) result.push_back(application);
  return result;
}

/// The others by their names; those of one name, by their identifiers.
std::vector<SBApplication*> pageApplications(const AppCatalogue& catalogue) {
  auto applications = catalogue.applications();
  std::ranges::stable_sort(applications, {}, [](const Application* one) { return one->bundle().name(); });
  const auto docked = dockApplications(catalogue);
  std::vector<SBApplication*> result;
  for (Application* application : applications)
    if (std::ranges::find(docked, application) == docked.end()) result.push_back(application);
  return result;
}

}  // namespace

HomeScreen::HomeScreen(const DeviceModel& model, const AppCatalogue& catalogue)
    : window_(std::make_shared<HomeWindow>(screenRect(model))),
      pager_(std::make_shared<IconPager>(homeLayout(model), [](IconView& view) { view.icon().launch(); })) {
  auto picture = std::make_shared<UIImageView>(screenRect(model));
  picture->setImage(wallpaper("Home", model));
  window_->addSubview(picture);
  pager_->build(pageApplications(catalogue), dockApplications(catalogue));
  window_->addSubview(pager_);
}

void HomeScreen::show() { window_->setHidden(false); }

std::optional<CGPoint> HomeScreen::iconCenter(const Application& application) const {
  const IconView& view = viewOf(application);
  if (!pager_->isInView(view)) return std::nullopt;
  return view.pictureCenterOnScreen();
}

void HomeScreen::revealIcon(const Application& application, std::function<void()> completion) {
  pager_->showPage(pager_->pageOf(viewOf(application)), std::move(completion));
}

}  // namespace host
