#include "host/recorder.h"

#include <gtest/gtest.h>
#include <webp/decode.h>
#include <webp/mux.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "host/failure.h"
#include "host/script_time.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/uikit/display.h"

namespace host {
namespace {

/// A screen of one colour, which changes as a test says.
class ColoredDisplay : public Display {
 public:
  CGSize size() const override { return {40, 60}; }
  CGFloat scale() const override { return 1; }
  CGImageRef picture() const override {
    CGContext context(size(), scale());
    context.fill({{0, 0}, size()}, color);
    return context.createImage();
  }
  CGColor color{1, 0, 0, 1};
};

struct Frame {
  int duration;  // Milliseconds.
  int width, height;
  int red, blue;  // Of the pixel in the middle.
};

std::vector<Frame> framesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(stream), {});
  const WebPData data = {bytes.data(), bytes.size()};
  std::vector<Frame> frames;
  WebPMux* mux = WebPMuxCreate(&data, 0);
  WebPMuxFrameInfo info;
  for (int number = 1; mux && WebPMuxGetFrame(mux, number, &info) == WEBP_MUX_OK; ++number) {
    Frame frame{};
    frame.duration = info.duration;
    std::uint8_t* pixels =
        WebPDecodeRGBA(info.bitstream.bytes, info.bitstream.size, &frame.width, &frame.height);
    const std::uint8_t* middle = pixels + 4 * (frame.height / 2 * frame.width + frame.width / 2);
    frame.red = middle[0];
    frame.blue = middle[2];
    frames.push_back(frame);
    WebPFree(pixels);
    WebPDataClear(&info.bitstream);
  }
  WebPMuxDelete(mux);
  return frames;
}

class RecorderTest : public testing::Test {
 protected:
  void SetUp() override { setDisplay(display_); }

  /// Changes the colour somewhere within the next frame.
  void turnBlue(CFTimeInterval delay) {
    RunLoop::main().scheduleAfter(delay, [this] { display_->color = {0, 0, 1, 1}; });
  }

  std::shared_ptr<ColoredDisplay> display_ = std::make_shared<ColoredDisplay>();
  std::string file_ = testing::TempDir() + "recorder_test.webp";
  ScriptTime time_;
};

TEST_F(RecorderTest, TakesThirtyPicturesASecondAndMergesEqualOnes) {
  FrameMeter meter(time_.now());
  ScriptTime measuredTime(&meter);
  for (ScriptTime* time : {&time_, &measuredTime}) {
    display_->color = {1, 0, 0, 1};
    time->advanceBy(0.71);  // Frames count from the recording's start, wherever that lies.
    time->startRecording(file_, 0.5);
    turnBlue(0.51);  // Seen by the picture at 16/30 s.
    time->advanceBy(0.2);
    time->advanceBy(0.8);
    time->stopRecording();

    const auto frames = framesOf(file_);
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].duration, 533);
    EXPECT_EQ(frames[1].duration, 1033 - 533);  // The picture at the stop stands for a thirtieth.
    EXPECT_EQ(frames[0].width, 20);
    EXPECT_EQ(frames[0].height, 30);
    EXPECT_GT(frames[0].red, 245);
    EXPECT_LT(frames[0].blue, 10);
    EXPECT_LT(frames[1].red, 10);
    EXPECT_GT(frames[1].blue, 245);
  }
}

TEST_F(RecorderTest, RefusesWhatCannotBeRecorded) {
  EXPECT_THROW(time_.stopRecording(), Failure);
  EXPECT_THROW(time_.startRecording("/no/such/folder/a.webp", 1), Failure);
  time_.startRecording(file_, 1);
  EXPECT_THROW(time_.startRecording(file_, 1), Failure);
  turnBlue(0);
  time_.turn();
  time_.stopRecording();
  EXPECT_GT(framesOf(file_).at(0).blue, 245)
      << "The picture at the stop replaces the one of the same instant";
  time_.startRecording("/dev/full", 1);
  EXPECT_THROW(time_.stopRecording(), Failure);
  EXPECT_FALSE(time_.recording());
}

}  // namespace
}  // namespace host
