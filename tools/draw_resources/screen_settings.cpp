#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x5c6b7d);

void drawTopics(Canvas& c, Rect area) {
  drawPinstripes(c, area);
  drawGroup(c, area, "",
            {{"Flight Mode", "", Accessory::SwitchOff, hex(0xd98a34), Glyph::Plane},
             {"Wireless", "Lantern", Accessory::Chevron, hex(0x3a80b5), Glyph::Wave}});
  drawGroup(c, area, "",
            {{"Notices", "", Accessory::Chevron, hex(0xb5453c), Glyph::Bell},
             {"Sounds", "", Accessory::Chevron, hex(0xa24f8c), Glyph::Speaker},
             {"Display", "", Accessory::Chevron, hex(0x3f9a8e), Glyph::Sun}});
  drawGroup(c, area, "",
            {{"General", "", Accessory::Chevron, hex(0x6f7b89), Glyph::Sliders, c.isPad()},
             {"Privacy", "", Accessory::Chevron, hex(0x4c5663), Glyph::Lock},
             {"Accounts", "2", Accessory::Chevron, hex(0x5a6fb0), Glyph::Person},
             {"Music", "", Accessory::Chevron, hex(0xd8487f), Glyph::Note}});
  drawGroup(c, area, "",
            {{"Photos", "", Accessory::Chevron, hex(0x7da03c), Glyph::Camera},
             {"Maps", "", Accessory::Chevron, hex(0x8a6a45), Glyph::Flag}});
}

void drawGeneral(Canvas& c, Rect area) {
  drawPinstripes(c, area);
  drawGroup(c, area, "", {{"About"}, {"Software Update"}, {"Storage", "9.4 GB free"}});
  drawGroup(c, area, "Language and Time",
            {{"Language", "English"},
             {"Keyboard", "2"},
             {"24-Hour Time", "", Accessory::SwitchOn},
             {"Time Zone", "Lisbon"}});
  drawGroup(c, area, "Locking",
            {{"Auto-Lock", "5 minutes"}, {"Passcode", "Off"}, {"Lock with Cover", "", Accessory::SwitchOn}});
  drawGroup(c, area, "Ease of Use",
            {{"Large Text", "", Accessory::SwitchOff},
             {"Spoken Screen", "", Accessory::SwitchOff},
             {"Mono Sound", "", Accessory::SwitchOff}});
  drawGroup(c, area, "", {{"Start Over"}});
}

}  // namespace

void drawSettingsScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  Rect side = c.isPad() ? area.takeLeft(sideColumnWidth) : area;
  const Rect edge = side;
  drawNavBar(c, side, {tint, "Settings"});
  drawTopics(c, side);
  if (c.isPad()) {
    drawNavBar(c, area, {tint, "General"});
    drawGeneral(c, area);
    drawColumnEdge(c, edge);
  }
}

}  // namespace draw_resources
