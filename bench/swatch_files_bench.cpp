// Reading and writing swatch files, and looking up colour books, each beside what it is measured against.
#include "made_swatches.h"

#include "files/file_io.h"
#include "formats/aco_reader.h"
#include "formats/aco_writer.h"
#include "formats/books_on_disk.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace chromalog {
namespace {

constexpr int kColours = 4999;
constexpr int kBookSpace = 3000;
constexpr const char* kBookFile = "ANPA Color.acb";

/// A list as the program holds it: inside one big block, filled once.
ListRecords list() {
    static const auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    return {records.get(), kListCapacity};
}

std::vector<std::uint8_t> swatchFile(int count) {
    const auto records = std::make_unique<FCOStruct[]>(kListCapacity);
    makeSwatches({records.get(), static_cast<std::size_t>(count)});
    std::vector<std::uint8_t> file;
    writeAco(file, {records.get(), kListCapacity}, static_cast<std::int16_t>(count));
    return file;
}

/// A folder of files that is gone with the program.
class Folder {
  public:
    Folder() {
        path_ = (std::filesystem::temp_directory_path() / "swatch_files_bench_XXXXXX").string();
        path_ = ::mkdtemp(path_.data());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }
    std::string operator/(const char* name) const { return path_ + "/" + name; }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

const Folder& folder() {
    static const Folder folder;
    return folder;
}

void plainWrite(const std::string& path, Bytes bytes) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (::write(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) std::abort();
    ::close(fd);
}

/// A file of so many swatches, written once.
const std::string& swatchPath(std::int64_t count) {
    static std::map<std::int64_t, std::string> paths;
    std::string& path = paths[count];
    if (path.empty()) {
        path = folder() / ("list" + std::to_string(count) + ".aco").c_str();
        plainWrite(path, swatchFile(static_cast<int>(count)));
    }
    return path;
}

void openReadClose(benchmark::State& state) {
    const std::string& path = swatchPath(state.range(0));
    std::vector<std::uint8_t> bytes(std::filesystem::file_size(path));
    for (auto _ : state) {
        const int fd = ::open(path.c_str(), O_RDONLY);
        if (::read(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) std::abort();
        ::close(fd);
        benchmark::DoNotOptimize(bytes.data());
    }
}

void readSwatchFile(benchmark::State& state) {
    const BooksOnDisk noBooks("");
    const std::string& path = swatchPath(state.range(0));
    for (auto _ : state) {
        const auto file = readDataFromFileAtURL(path);
        readAcoRecords(*file, readAcoHeader(*file, 0), 0, list(), nullptr, noBooks);
        benchmark::DoNotOptimize(list().data());
    }
}

/// A strong reader through stdio of one kind of file only: RGB colours with names in ASCII. One large buffer,
/// no locks, two calls a record.
void readThroughStdio(benchmark::State& state) {
    const std::string& path = swatchPath(state.range(0));
    for (auto _ : state) {
        std::FILE* file = std::fopen(path.c_str(), "rb");
        std::setvbuf(file, nullptr, _IOFBF, 1 << 16);
        std::uint8_t head[4], fixed[14], units[2 * 255];
        if (fread_unlocked(head, 1, sizeof head, file) != sizeof head) std::abort();
        const int count = head[2] << 8 | head[3];
        for (int i = 0; i < count; ++i) {
            FCOStruct& record = list()[static_cast<std::size_t>(i)];
            if (fread_unlocked(fixed, 1, sizeof fixed, file) != sizeof fixed) std::abort();
            record.SRed = bigEndian16(fixed + 2);
            record.SGreen = bigEndian16(fixed + 4);
            record.SBlue = bigEndian16(fixed + 6);
            const std::size_t length = fixed[13];
            if (fread_unlocked(units, 2, length, file) != length) std::abort();
            record.Namen[0] = static_cast<std::uint8_t>(length - 1);
            for (std::size_t k = 0; k < length; ++k)
                record.Namen[1 + k] = units[2 * k + 1];
        }
        std::fclose(file);
        benchmark::DoNotOptimize(list().data());
    }
}

void writeTheSameBytes(benchmark::State& state) {
    const std::vector<std::uint8_t> file = swatchFile(static_cast<int>(state.range(0)));
    for (auto _ : state)
        plainWrite(folder() / "plain.aco", file);
}

/// To a temporary file that takes the place of the old one, as it is saved.
void writeSwatchFile(benchmark::State& state) {
    const auto count = static_cast<std::int16_t>(state.range(0));
    makeSwatches(list());
    for (auto _ : state) {
        std::vector<std::uint8_t> data;
        writeAco(data, list(), count);
        if (!writeDataToFileAtURL(folder() / "written.aco", data)) std::abort();
    }
}

BookKey keyOf(int i) {
    char text[7];
    std::snprintf(text, sizeof text, "%6d", i);
    BookKey key;
    std::copy_n(text, key.size(), key.begin());
    return key;
}

/// A book of RGB colours, and its keys in another order.
std::vector<BookKey> makeBook() {
    std::vector<std::uint8_t> book(8 + 4 * 4); // no title, prefix, postfix or description
    std::vector<BookKey> keys;
    const auto put = [&book](std::initializer_list<int> words) {
        for (const int v : words)
            book.insert(book.end(), {static_cast<std::uint8_t>(v >> 8), static_cast<std::uint8_t>(v)});
    };
    put({kColours, 9, 4, kBookRgb});
    for (int i = 0; i < kColours; ++i) {
        const BookKey key = keyOf(i);
        put({0, 4, 'n', 'a', 'm', 'e'});
        book.insert(book.end(), key.begin(), key.end());
        book.insert(book.end(), {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i >> 8), 0});
        keys.push_back(keyOf((i * 1117) % kColours));
    }
    plainWrite(folder() / kBookFile, book);
    return keys;
}

void readTheBookOnce(benchmark::State& state) {
    makeBook();
    const BooksOnDisk books(folder().path());
    for (auto _ : state) {
        const auto file = books.readBook(kBookFile);
        loadBook(*file, list(), nullptr);
        benchmark::DoNotOptimize(list().data());
    }
}

/// The host conversions come on top; a book of RGB colours needs none.
void lookUp4999References(benchmark::State& state) {
    const std::vector<BookKey> keys = makeBook();
    const BooksOnDisk books(folder().path());
    for (auto _ : state) {
        BookLookup lookup(books, nullptr);
        for (const BookKey& key : keys)
            benchmark::DoNotOptimize(lookup.getValueFromAse(kBookSpace, key)[0]);
    }
}

#define AT_ALL_COUNTS ->Arg(10)->Arg(100)->Arg(1000)->Arg(kColours)
BENCHMARK(openReadClose) AT_ALL_COUNTS;
BENCHMARK(readSwatchFile) AT_ALL_COUNTS;
BENCHMARK(readThroughStdio) AT_ALL_COUNTS;
BENCHMARK(writeTheSameBytes) AT_ALL_COUNTS->UseRealTime();
BENCHMARK(writeSwatchFile) AT_ALL_COUNTS->UseRealTime();
BENCHMARK(readTheBookOnce);
BENCHMARK(lookUp4999References);

} // namespace
} // namespace chromalog
