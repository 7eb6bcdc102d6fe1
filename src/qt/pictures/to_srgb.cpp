#include "qt/pictures/to_srgb.h"

#include "base/translated.h"

#include <QColorSpace>
#include <QColorTransform>

#include <algorithm>
#include <atomic>
#include <thread>

namespace chromalog {
namespace {

constexpr int kRowsAtOnce = 64;

/// Rows of the picture, a few at a time, until there are none left or somebody says stop.
class RowTransform {
  public:
    RowTransform(QImage& image, const QColorTransform& transform)
        : image_(image), bits_(image.bits()), transform_(transform) {}

    /// On two threads, of which this one tells of the progress. False where it was stopped.
    bool run(const WorkProgress& progress, double from) {
        std::thread other([this] { share({}, 0); });
        share(progress, from);
        other.join();
        return goesOn_;
    }

  private:
    void share(const WorkProgress& progress, double from) noexcept try {
        for (int row = take(); goesOn_ && row < image_.height(); row = take()) {
            QImage rows(bits_ + row * image_.bytesPerLine(), image_.width(),
                        std::min(kRowsAtOnce, image_.height() - row), image_.bytesPerLine(), image_.format());
            rows.applyColorTransform(transform_);
            if (progress && !progress(from + (1 - from) * row / image_.height())) goesOn_ = false;
        }
    } catch (...) {
        goesOn_ = false;
    }
    int take() { return next_.fetch_add(kRowsAtOnce); }

    const QImage& image_;
    uchar* const bits_;
    const QColorTransform& transform_;
    std::atomic<int> next_ = 0;
    std::atomic<bool> goesOn_ = true;
};

Picture pictureOf(QImage image) {
    auto kept = std::make_shared<const QImage>(std::move(image));
    const auto* words = reinterpret_cast<const std::uint32_t*>(kept->constBits());
    const auto count = static_cast<std::size_t>(kept->width()) * static_cast<std::size_t>(kept->height());
    return {kept->width(), kept->height(), {words, count}, kept};
}

} // namespace

ReadPicture toSrgb(QImage image, const WorkProgress& progress, double from) {
    ReadPicture read;
    const QColorSpace profile = image.colorSpace(), srgb = QColorSpace::SRgb;
    if (!profile.isValid() && !profile.iccProfile().isEmpty())
        read.remark = translated("its color profile cannot be used; the colors count as sRGB");
    const bool transforms = profile.isValid() && profile != srgb;
    const QColorTransform transform =
        transforms ? profile.transformationToColorSpace(srgb) : QColorTransform();
    const bool deep = image.depth() > 32; // not rounded before it is transformed
    if (transforms && deep) image.applyColorTransform(transform);
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (transforms && !deep && !image.isNull() && !RowTransform(image, transform).run(progress, from))
        return {};
    if (image.isNull())
        read.fault = translated("there is not enough memory");
    else
        read.picture = pictureOf(std::move(image));
    return read;
}

} // namespace chromalog
