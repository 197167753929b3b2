// JPEG, with libjpeg-turbo.

#include <cstdio>
// jpeglib.h needs what cstdio declares.
#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/coregraphics/error_jump.h"
#include "platform/coregraphics/exif_orientation.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/coregraphics/image_decoders.h"
#include "platform/coregraphics/picture_size.h"

namespace {

constexpr std::array<std::uint8_t, 3> jpegSignature{0xFF, 0xD8, 0xFF};
constexpr int exifMarker = JPEG_APP0 + 1;
constexpr unsigned maxMarkerLength = 0xFFFF;
/// Real progressive pictures have about ten; a small file of thousands would keep the decoder busy for
/// minutes.
constexpr int maxScans = 100;
/// Of all scans; every one goes over the whole picture.
constexpr std::int64_t maxScannedPixels = 512ll << 20;
constexpr int cmykComponents = 4;
constexpr int maxComponent = 255;
constexpr std::size_t outputChunk = 16384;

/// The library's error handler, leading to an ErrorJump.
struct ErrorHandler {
  jpeg_error_mgr manager;  // First, so that the library's pointer to it is one to the handler.
  ErrorJump jump;

  ErrorHandler() {
    jpeg_std_error(&manager);
    manager.error_exit = [](j_common_ptr codec) { of(codec).jump.fail(); };
    manager.emit_message = warn;
    manager.output_message = [](j_common_ptr) {};
  }

 private:
  static ErrorHandler& of(j_common_ptr codec) { return *reinterpret_cast<ErrorHandler*>(codec->err); }

  /// The library paints over damaged and missing data and goes on; to us such a picture is none.
  static void warn(j_common_ptr codec, int level) {
    const bool isWarning = level < 0;
    const int code = codec->err->msg_code;
    const bool isHarmless =
        code == JWRN_EXTRANEOUS_DATA || code == JWRN_ADOBE_XFORM || code == JWRN_BOGUS_PROGRESSION;
    if (isWarning && !isHarmless) of(codec).jump.fail();
  }
};

/// One picture being decoded. Each step answers false when it failed; after that only destruction is left.
class Decompressor {
 public:
  Decompressor() {
    codec_.err = &error_.manager;
    created_ = error_.jump.guard([this] { jpeg_create_decompress(&codec_); });
    progress_.progress_monitor = [](j_common_ptr codec) {
      const auto* decoder = reinterpret_cast<j_decompress_ptr>(codec);
      const int scans = decoder->input_scan_number;
      const std::int64_t pixels = std::int64_t{decoder->image_width} * decoder->image_height;
      if (scans > maxScans || scans * pixels > maxScannedPixels) codec->err->error_exit(codec);
    };
    codec_.progress = &progress_;
  }
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;
  ~Decompressor() {
    if (created_) jpeg_destroy_decompress(&codec_);
  }

  bool readHeader(const NSData& data) {
    return created_ && error_.jump.guard([&] {
      jpeg_mem_src(&codec_, data.data(), data.size());
      jpeg_save_markers(&codec_, exifMarker, maxMarkerLength);
      jpeg_read_header(&codec_, TRUE);
    });
  }

  std::uint32_t width() const { return codec_.image_width; }
  std::uint32_t height() const { return codec_.image_height; }
  bool isGray() const { return codec_.jpeg_color_space == JCS_GRAYSCALE; }
  bool isCmyk() const { return codec_.num_components == cmykComponents; }
  /// Photo editors that leave Adobe's marker store ink as 255 minus its amount.
  bool inksAreInverted() const { return codec_.saw_Adobe_marker; }

  /// To be asked before the pixels are read; the library then forgets its markers.
  int orientation() const {
    for (auto* marker = codec_.marker_list; marker; marker = marker->next) {
      if (marker->marker != exifMarker) continue;
      const int orientation = exifOrientation({marker->data, marker->data_length});
      if (orientation != exifOrientationUp) return orientation;
    }
    return exifOrientationUp;
  }

  /// Decodes to `pixels`, which has room for all rows: a byte a pixel for grey ones, four for the others.
  bool readPixels(std::uint8_t* pixels, std::size_t bytesPerRow) {
    return error_.jump.guard([this, pixels, bytesPerRow] {
      codec_.out_color_space = isGray() ? JCS_GRAYSCALE : isCmyk() ? JCS_CMYK : JCS_EXT_BGRA;
      jpeg_start_decompress(&codec_);
      while (codec_.output_scanline < codec_.output_height) {
        JSAMPROW row = pixels + std::size_t{codec_.output_scanline} * bytesPerRow;
        jpeg_read_scanlines(&codec_, &row, 1);
      }
      jpeg_finish_decompress(&codec_);
    });
  }

 private:
  jpeg_decompress_struct codec_{};
  jpeg_progress_mgr progress_{};
  ErrorHandler error_;
  bool created_ = false;
};

/// What is left of `light` behind an ink that lets through `part` of it.
std::uint8_t shaded(int light, int part) {
  return std::uint8_t((light * part + maxComponent / 2) / maxComponent);
}

/// Inks to blue, green, red and an unused byte, in place.
void convertCmyk(std::vector<std::uint8_t>& pixels, bool inverted) {
  for (std::size_t i = 0; i + cmykComponents <= pixels.size(); i += cmykComponents) {
    std::uint8_t* pixel = pixels.data() + i;
    const auto light = [=](int ink) { return inverted ? pixel[ink] : maxComponent - pixel[ink]; };
    const int red = light(0);
    const int green = light(1);
    const int blue = light(2);
    const int black = light(3);
    pixel[0] = shaded(blue, black);
    pixel[1] = shaded(green, black);
    pixel[2] = shaded(red, black);
    pixel[3] = maxComponent;
  }
}

/// What the library writes to: a chunk that is appended to `target` whenever it is full.
struct Destination {
  jpeg_destination_mgr manager{};  // First, so that the library's pointer to it is one to the destination.
  NSData& target;
  std::array<std::uint8_t, outputChunk> chunk;

  explicit Destination(NSData& data) : target(data) {
    manager.init_destination = [](j_compress_ptr codec) { of(codec).startChunk(); };
    manager.empty_output_buffer = [](j_compress_ptr codec) -> boolean {
      // The library means the whole chunk, whatever free_in_buffer says.
      of(codec).manager.free_in_buffer = 0;
      of(codec).flush();
      return TRUE;
    };
    manager.term_destination = [](j_compress_ptr codec) { of(codec).flush(); };
  }

 private:
  static Destination& of(j_compress_ptr codec) { return *reinterpret_cast<Destination*>(codec->dest); }

  void startChunk() {
    manager.next_output_byte = chunk.data();
    manager.free_in_buffer = chunk.size();
  }
  void flush() {
    target.insert(target.end(), chunk.begin(), chunk.end() - std::ptrdiff_t(manager.free_in_buffer));
    startChunk();
  }
};

/// One picture being encoded.
class Compressor {
 public:
  explicit Compressor(NSData& target) : destination_(target) {
    codec_.err = &error_.manager;
    created_ = error_.jump.guard([this] { jpeg_create_compress(&codec_); });
    codec_.dest = &destination_.manager;
  }
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;
  ~Compressor() {
    if (created_) jpeg_destroy_compress(&codec_);
  }

  /// `image` is grey or in screen layout. False when the library cannot encode it.
  bool write(const CGImage& image, int percent, bool subsampled) {
    return created_ && error_.jump.guard([&] {
      const bool gray = image.format().colorSpace == CGColorSpace::DeviceGray;
      codec_.image_width = JDIMENSION(image.width());
      codec_.image_height = JDIMENSION(image.height());
      codec_.input_components = int(image.format().bytesPerPixel());
      codec_.in_color_space = gray ? JCS_GRAYSCALE : JCS_EXT_BGRX;
      jpeg_set_defaults(&codec_);
      jpeg_set_quality(&codec_, percent, TRUE);
      // The defaults sample the first component, brightness, twice as densely as the colours.
      if (!subsampled) codec_.comp_info[0].h_samp_factor = codec_.comp_info[0].v_samp_factor = 1;
      jpeg_start_compress(&codec_, TRUE);
      while (codec_.next_scanline < codec_.image_height) {
        auto* row = const_cast<JSAMPROW>(image.row(int(codec_.next_scanline)));  // Only read.
        jpeg_write_scanlines(&codec_, &row, 1);
      }
      jpeg_finish_compress(&codec_);
    });
  }

 private:
  jpeg_compress_struct codec_{};
  ErrorHandler error_;
  Destination destination_;
  bool created_ = false;
};

}  // namespace

bool isJpeg(const NSData& data) {
  return data.size() >= jpegSignature.size() &&
         std::equal(jpegSignature.begin(), jpegSignature.end(), data.begin());
}

CGImageRef decodeJpeg(const NSData& data, int& orientation, std::uint32_t largestSide) {
  Decompressor decompressor;
  if (!decompressor.readHeader(data)) return nullptr;
  if (!isAcceptablePictureSize(decompressor.width(), decompressor.height(), largestSide)) return nullptr;

  orientation = decompressor.orientation();
  CGPixelFormat format{8, 32, CGColorSpace::DeviceRGB, kCGImageAlphaNoneSkipFirstLittle};
  if (decompressor.isGray()) format = {8, 8, CGColorSpace::DeviceGray, kCGImageAlphaNone};
  const std::size_t bytesPerRow = decompressor.width() * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * decompressor.height());
  if (!decompressor.readPixels(pixels->data(), bytesPerRow)) return nullptr;
  if (decompressor.isCmyk()) convertCmyk(*pixels, decompressor.inksAreInverted());
  return CGImage::create(int(decompressor.width()), int(decompressor.height()), format, bytesPerRow,
                         std::move(pixels));
}

NSData encodeJpeg(const CGImageRef& image, CGFloat quality, ChromaSubsampling subsampling) {
  if (!image) return {};
  const bool gray = image->format().colorSpace == CGColorSpace::DeviceGray;
  const CGImageRef source = gray ? image : CGImage::inScreenFormat(image);
  const CGFloat clamped = quality > 0 ? std::min(quality, CGFloat(1)) : 0;
  const bool subsampled = subsampling == ChromaSubsampling::BelowBest && clamped < 1;
  NSData encoded;
  // Premultiplied colours are their own composition onto black.
  if (!Compressor(encoded).write(*source, int(std::lround(clamped * 100)), subsampled)) return {};
  return encoded;
}
