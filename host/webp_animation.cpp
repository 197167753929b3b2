#include "host/webp_animation.h"

#include <webp/encode.h>
#include <webp/mux.h>

#include <stdexcept>
#include <string>

namespace host {
namespace {

constexpr float quality = 80;  // Of 100.
constexpr int method = 2;      // Of 0 to 6. Slower ones save little.
constexpr int forEver = 0;     // As a loop count.
// The format gives a picture 24 bits of milliseconds; well before that the same picture is encoded once more.
constexpr int longestPicture = 60 * 60 * 1000;

WebPConfig encoding() {
  WebPConfig config;
  if (!WebPConfigInit(&config)) throw std::runtime_error("WebP library of another version");
  config.quality = quality;
  config.method = method;
  return config;
}

/// A picture in the encoder's own representation.
class EncoderPicture {
 public:
  explicit EncoderPicture(const CGImageRef& image) {
    if (!WebPPictureInit(&picture_)) throw std::runtime_error("WebP library of another version");
    picture_.use_argb = 1;
    picture_.width = image->width();
    picture_.height = image->height();
    // The screen is opaque: the fourth byte of a pixel says nothing.
    if (!WebPPictureImportBGRX(&picture_, image->row(0), int(image->bytesPerRow()))) throw std::bad_alloc();
  }
  EncoderPicture(const EncoderPicture&) = delete;
  EncoderPicture& operator=(const EncoderPicture&) = delete;
  ~EncoderPicture() { WebPPictureFree(&picture_); }

  WebPPicture* get() { return &picture_; }

 private:
  WebPPicture picture_;
};

}  // namespace

WebpAnimation::WebpAnimation() = default;
WebpAnimation::~WebpAnimation() = default;

void WebpAnimation::EncoderDeleter::operator()(WebPAnimEncoder* encoder) const {
  WebPAnimEncoderDelete(encoder);
}

void WebpAnimation::show(CGImageRef picture, int milliseconds) {
  picture = CGImage::inScreenFormat(picture);
  if (current_ && milliseconds > currentSince_) {
    if (milliseconds - currentSince_ < longestPicture && CGImage::samePixels(*current_, *picture)) return;
    encodeCurrent();
  }
  current_ = std::move(picture);
  currentSince_ = milliseconds;
}

NSData WebpAnimation::finish(int milliseconds) {
  if (!current_) return {};
  encodeCurrent();
  WebPData data;
  WebPDataInit(&data);
  if (!WebPAnimEncoderAdd(encoder_.get(), nullptr, milliseconds, nullptr)) fail();
  if (!WebPAnimEncoderAssemble(encoder_.get(), &data)) fail();
  NSData bytes(data.bytes, data.bytes + data.size);
  WebPDataClear(&data);
  return bytes;
}

void WebpAnimation::encodeCurrent() {
  if (!encoder_) {
    WebPAnimEncoderOptions options;
    if (!WebPAnimEncoderOptionsInit(&options)) throw std::runtime_error("WebP library of another version");
    options.anim_params.loop_count = forEver;
    encoder_.reset(WebPAnimEncoderNew(current_->width(), current_->height(), &options));
    if (!encoder_) throw std::bad_alloc();
  }
  const WebPConfig config = encoding();
  EncoderPicture picture(current_);
  if (!WebPAnimEncoderAdd(encoder_.get(), picture.get(), currentSince_, &config)) fail();
}

void WebpAnimation::fail() const { throw std::runtime_error(WebPAnimEncoderGetError(encoder_.get())); }

}  // namespace host
