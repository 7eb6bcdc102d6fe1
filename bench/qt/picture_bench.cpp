// Twelve colours of a photo of 24 megapixels, from the file on: by a camera's plain file, and by a turned one
// in a wider space. Beside it, what the toolkit takes to decode the file.
#include "pictures/fitted_picture.h"
#include "qt/pictures/picture_reader.h"
#include "spaces/nearest_css_name.h"
#include "spaces/picture_colours.h"
#include "support/temporary_folder.h"

#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>

#include <benchmark/benchmark.h>

#include <random>

namespace chromalog {
namespace {

/// Smooth, with some grain, as a photo is.
QImage photo() {
    QImage image(6000, 4000, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto grain = static_cast<int>(random() & 7);
            line[x] = qRgb(x * 240 / 6000 + grain, y * 240 / 4000 + grain, (x + y) * 240 / 10000 + grain);
        }
    }
    return image;
}

const std::string& file(bool wide) {
    static const test::TemporaryFolder folder;
    static const std::string paths[] = {folder / "plain.jpg", folder / "wide.jpg"};
    QImage image = photo();
    if (wide) image.setColorSpace(QColorSpace::DisplayP3);
    QImageWriter writer(QString::fromStdString(paths[wide]));
    writer.setQuality(90);
    if (wide) writer.setTransformation(QImageIOHandler::TransformationRotate90);
    writer.write(image);
    return paths[wide];
}

void coloursOfPhoto(benchmark::State& state) {
    const std::string path = file(state.range(0) != 0);
    for (auto _ : state) {
        const ReadPicture read = readPictureFile(path, {});
        benchmark::DoNotOptimize(overviewOf(read.picture, 2048));
        const auto colours = pictureColours(read.picture.pixels, 12, PictureOrder::amount);
        for (const PictureColour& each : colours.value())
            benchmark::DoNotOptimize(nearestCssName(each.rgb));
    }
}

void decodePhoto(benchmark::State& state) {
    const QString path = QString::fromStdString(file(state.range(0) != 0));
    for (auto _ : state)
        benchmark::DoNotOptimize(QImageReader(path).read());
}

BENCHMARK(coloursOfPhoto)->Arg(0)->Arg(1)->UseRealTime()->Unit(benchmark::kMillisecond); // below a second
BENCHMARK(decodePhoto)->Arg(0)->Arg(1)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace chromalog
