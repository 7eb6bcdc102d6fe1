#include "standalone/palettes/convert.h"

#include "base/number_text.h"
#include "files/file_io.h"
#include "files/size_limit_signal.h"
#include "palettes/palette_loss.h"
#include "palettes/palette_text.h"
#include "spaces/css_colour.h"
#include "spaces/lab_grid.h"
#include "standalone/palettes/ink.h"
#include "standalone/palettes/palette_input.h"
#include "standalone/palettes/palette_listing.h"
#include "standalone/standard_streams.h"

#include <cerrno>
#include <iostream>

namespace chromalog::standalone {

namespace {

std::string unreadLine(const std::string& file, std::size_t unread) {
    return named(file) + ": " + std::to_string(unread) + (unread == 1 ? " color" : " colors") +
           " could not be read";
}

std::string noColours(const std::vector<std::string>& files, bool someUnread) {
    const std::string readable = someUnread ? " that can be read" : "";
    if (files.size() > 1)
        return "none of the " + std::to_string(files.size()) + " files holds a color" + readable;
    return named(files.front()) + ": it holds no colors" + readable;
}

enum class WithoutColours { shown, refused };

/// All files as one palette; says what of them could not be read.
Palette readAll(const std::vector<std::string>& files, const std::string& from, WithoutColours none) {
    const PaletteInput input(from);
    std::vector<Palette> palettes;
    std::vector<std::string> unread;
    for (const std::string& file : files) {
        ReadPalette read = input.read(file);
        if (read.unread > 0) unread.push_back(unreadLine(file, read.unread));
        palettes.push_back(std::move(read.palette));
    }
    Palette all = joined(std::move(palettes));
    if (all.colours.empty() && none == WithoutColours::refused)
        throw std::runtime_error(noColours(files, !unread.empty()));
    for (const std::string& line : unread)
        say(line);
    return all;
}

void print(std::string_view text) {
    const SizeLimitSignalBlock onlyFails;
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
    finishStandardOutput();
}

PaletteFormat formatOfOutput(const std::string& path, const std::string& to) {
    if (!to.empty()) return *formatOfWord(to);
    if (const auto format = formatOfExtension(path)) return *format;
    if (path == kStandardStream) throw std::runtime_error("--to must say what is written to standard output");
    throw std::runtime_error(path + ": which kind of palette? The extension does not tell; --to would");
}

void sayLoss(const std::string& path, const PaletteLoss& loss, const std::string& ink) {
    std::string text;
    for (const std::string& line : lossLines(loss, ink))
        text.append(text.empty() ? "" : "; ").append(line);
    if (!text.empty()) say((path == kStandardStream ? "standard output" : path) + ": " + text);
}

void writeOut(const std::string& path, const std::vector<std::uint8_t>& file) {
    if (path == kStandardStream) return print({reinterpret_cast<const char*>(file.data()), file.size()});
    const SizeLimitSignalBlock onlyFails;
    if (!writeDataToFileAtURL(path, file, 0, Flush::later)) // whole or not at all either way
        throw std::runtime_error("cannot write " + path + ": " + reasonOf(errno));
}

void prepare(Palette& palette, const ConvertRequest& request, const CmykToRgb& ink) {
    if (request.dedupe >= 0) dropNearDoubles(palette, request.dedupe, ink);
    sortPalette(palette, request.order, ink);
}

std::string difference(double value) {
    const std::string text = fixedText(value, 2);
    return std::string(text.size() < 6 ? 6 - text.size() : 0, ' ') + text;
}

} // namespace

void runConvert(const ConvertRequest& request) {
    Ink ink(request.cmykProfile);
    std::vector<std::string> inputs = request.files;
    if (request.list || request.json) {
        Palette palette = readAll(inputs, request.from, WithoutColours::shown);
        prepare(palette, request, ink.converter());
        return print(request.json ? jsonOf(palette, ink.converter()) : tableOf(palette, ink.converter()));
    }
    const std::string output = inputs.back();
    inputs.pop_back();
    const PaletteFormat format = formatOfOutput(output, request.to);
    Palette palette =
        readAll(inputs, request.from, WithoutColours::refused); // an empty one would only empty OUT
    prepare(palette, request, ink.converter());
    const FittedPalette fitted = fitPalette(palette, format, ink.converter());
    writeOut(output, rulesOf(format).write(fitted.palette));
    sayLoss(output, lossOf(palette, fitted), ink.name());
}

void runNearest(const NearestRequest& request) {
    const auto colour = readCssColour(request.colour);
    if (!colour) throw std::runtime_error("not a colour: " + request.colour);
    Ink ink(request.cmykProfile);
    const Palette all = readAll(request.files, request.from, WithoutColours::refused);
    const Palette palette = withoutReferences(all, all.colours.size()).palette;
    const auto labs = labsOf(palette, ink.converter());
    std::string text;
    for (const ColourMatch& match :
         LabGrid(labs).nearestFew(labOf(colour->rgb), static_cast<std::size_t>(request.count))) {
        Palette one;
        one.colours = {palette.colours[match.index]};
        text.append(difference(match.difference)).append("  ").append(tableOf(one, ink.converter()));
    }
    print(text);
}

} // namespace chromalog::standalone
