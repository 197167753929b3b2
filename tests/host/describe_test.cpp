#include "host/describe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/quartzcore/ca_gradient_layer.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_label.h"
#include "platform/uikit/ui_window.h"
#include "tests/support/pictures.h"

namespace host {
namespace {

class DescribeTest : public testing::Test {
 protected:
  void SetUp() override {
    setDisplay(std::make_shared<WindowDisplay>(CGSizeMake(320, 480), 2));
    window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 320, 480));
    window_->setWindowLevel(9001);
  }
  std::shared_ptr<UIWindow> window_;
};

TEST_F(DescribeTest, GivesEveryPropertyOfAView) {
  auto image = std::make_shared<UIImageView>(CGRectMake(10, 20, 60, 30));
  image->setImage(UIImage::imageWithCGImage(noise(12, 6), 2, UIImageOrientation::Up));
  image->setTransform(CGAffineTransformMakeScale(0.7f, -1));
  image->layer().setShadowOpacity(0.8f);
  image->layer().setShadowOffset({0, 1.5f});
  image->layer().setFilters({CAFilter::filterWithType("gaussianBlur")});
  auto label = std::make_shared<UILabel>(CGRectMake(0, 0, 100, 20));
  label->setText("Mail");
  label->setAlpha(0.1f);
  label->setBackgroundColor(UIColor::colorWithPatternImage(image->image()));
  auto gradient = CAGradientLayer::layer();
  gradient->setFrame(CGRectMake(0, 0, 320, 40));
  gradient->setColors({{1, 0.5f, 0, 1}, {0, 0, 0, 0.2f}});
  gradient->setLocations({0, 1});
  window_->layer().addSublayer(gradient);
  window_->setBackgroundColor(UIColor::colorWithWhite(1, 0.5f));
  window_->setUserInteractionEnabled(false);
  window_->addSubview(image);
  window_->addSubview(label);

  // Spelled as text: the order of the keys and the form of the numbers count.
  EXPECT_EQ(
      jsonLine(describeView(*window_, Values::Model)),
      R"({"class":"UIWindow","frame":[0,0,320,480],"bounds":[0,0,320,480],"alpha":1,"hidden":true,)"
      R"("userInteraction":false,"transform":[1,0,0,1,0,0],"level":9001,"background":"#ffffff80",)"
      R"("layers":[{"class":"CAGradientLayer","frame":[0,0,320,40],"colors":["#ff8000ff","#00000033"],)"
      R"("locations":[0,1]}],"subviews":[)"
      R"({"class":"UIImageView","frame":[19,20,42,30],"bounds":[0,0,60,30],"alpha":1,"hidden":false,)"
      R"("userInteraction":false,"transform":[0.7,0,0,-1,0,0],"image":{"width":12,"height":6,"scale":2},)"
      R"("background":null,"shadow":{"opacity":0.8,"offset":[0,1.5]},"filters":["gaussianBlur"],"subviews":[]},)"
      R"({"class":"UILabel","frame":[0,0,100,20],"bounds":[0,0,100,20],"alpha":0.1,"hidden":false,)"
      R"("userInteraction":false,"transform":[1,0,0,1,0,0],"text":"Mail","background":"pattern","subviews":[]}]})"
      "\n");
}

TEST_F(DescribeTest, PresentationIsWhatIsOnScreenNow) {
  auto view = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
  UIView::animateWithDuration(2, [&] { view->setFrame(CGRectMake(100, 0, 10, 10)); });
  RunLoop::main().advanceBy(1);
  EXPECT_NEAR(describeView(*view, Values::Presentation)["frame"][0].get<double>(), 50, 0.01);
  EXPECT_EQ(describeView(*view, Values::Model)["frame"][0], 100);
}

TEST_F(DescribeTest, WindowsLieBackToFrontAndOddValuesStayJson) {
  auto back = std::make_shared<UIWindow>(CGRectZero);
  back->setBounds(CGRectMake(std::nanf(""), 0, std::numeric_limits<float>::infinity(), 1e20f));
  back->setWindowLevel(-1.5f);
  window_->makeKeyAndVisible();
  auto label = std::make_shared<UILabel>(CGRectZero);
  label->setText("a\xff\"");
  window_->addSubview(label);
  const Json windows = Json::parse(jsonPage(describeWindows(Values::Model)));
  ASSERT_EQ(windows.size(), 2u);
  EXPECT_EQ(windows[0]["level"], -1.5);
  EXPECT_EQ(windows[0]["bounds"], Json::parse("[null,0,null,1e20]"));
  EXPECT_FALSE(windows[1]["hidden"]);
  EXPECT_EQ(windows[1]["subviews"][0]["text"], "a\uFFFD\"");
}

}  // namespace
}  // namespace host
