// Reading and writing swatch files, and looking up colour books, each beside what it is measured against.
#include "files/file_io.h"
#include "formats/aco_reader.h"
#include "formats/aco_writer.h"
#include "formats/books_on_disk.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>

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

std::vector<std::uint8_t> swatchFile() {
    const auto records = std::make_unique<FCOStruct[]>(kColours);
    std::mt19937 random(1);
    for (int i = 0; i < kColours; ++i) {
        FCOStruct& record = records[static_cast<std::size_t>(i)];
        char* name = reinterpret_cast<char*>(record.Namen) + 1;
        record.Namen[0] = static_cast<std::uint8_t>(std::snprintf(name, 255, "Colour %d", i));
        record.SRed = random() % 65536;
        record.SGreen = random() % 65536;
        record.SBlue = random() % 65536;
    }
    std::vector<std::uint8_t> file;
    writeAco(file, {records.get(), kColours}, kColours);
    return file;
}

/// A folder of files that is gone with the program.
class Folder {
  public:
    Folder() {
        char name[] = "/tmp/swatch_files_bench_XXXXXX";
        path_ = ::mkdtemp(name);
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

const std::string& swatchPath() {
    static const std::string path = [] {
        plainWrite(folder() / "list.aco", swatchFile());
        return folder() / "list.aco";
    }();
    return path;
}

void openReadClose(benchmark::State& state) {
    std::vector<std::uint8_t> bytes(std::filesystem::file_size(swatchPath()));
    for (auto _ : state) {
        const int fd = ::open(swatchPath().c_str(), O_RDONLY);
        if (::read(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) std::abort();
        ::close(fd);
        benchmark::DoNotOptimize(bytes.data());
    }
}

/// Limits: 14 times openReadClose, 0.4 of readThroughStdio.
void readSwatchFile(benchmark::State& state) {
    const BooksOnDisk noBooks("");
    swatchPath();
    for (auto _ : state) {
        const auto file = readDataFromFileAtURL(swatchPath());
        readAcoRecords(*file, readAcoHeader(*file, 0), 0, list(), nullptr, noBooks);
        benchmark::DoNotOptimize(list().data());
    }
}

/// The same for RGB records, each field fetched through stdio.
void readThroughStdio(benchmark::State& state) {
    swatchPath();
    for (auto _ : state) {
        std::FILE* file = std::fopen(swatchPath().c_str(), "rb");
        std::uint8_t head[4], colour[10], length[4], unit[2];
        if (std::fread(head, 1, 4, file) != 4) std::abort();
        const int count = head[2] << 8 | head[3];
        for (int i = 0; i < count; ++i) {
            FCOStruct& record = list()[static_cast<std::size_t>(i)];
            if (std::fread(colour, 1, 10, file) != 10 || std::fread(length, 1, 4, file) != 4) std::abort();
            record.SRed = bigEndian16(colour + 2);
            record.SGreen = bigEndian16(colour + 4);
            record.SBlue = bigEndian16(colour + 6);
            record.Namen[0] = static_cast<std::uint8_t>(length[3] - 1);
            for (int k = 1; k <= record.Namen[0] + 1; ++k) {
                if (std::fread(unit, 1, 2, file) != 2) std::abort();
                record.Namen[k] = unit[1];
            }
        }
        std::fclose(file);
        benchmark::DoNotOptimize(list().data());
    }
}

void writeTheSameBytes(benchmark::State& state) {
    const std::vector<std::uint8_t> file = swatchFile();
    for (auto _ : state)
        plainWrite(folder() / "plain.aco", file);
}

/// Limit: 10 times writeTheSameBytes. It writes to a temporary file that takes the place of the old one.
void writeSwatchFile(benchmark::State& state) {
    const std::vector<std::uint8_t> file = swatchFile();
    const BooksOnDisk noBooks("");
    readAcoRecords(file, readAcoHeader(file, 0), 0, list(), nullptr, noBooks);
    for (auto _ : state) {
        std::vector<std::uint8_t> data;
        writeAco(data, list(), kColours);
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

/// Limit: 3 times readTheBookOnce. The host conversions come on top; a book of RGB colours needs none.
void lookUp4999References(benchmark::State& state) {
    const std::vector<BookKey> keys = makeBook();
    const BooksOnDisk books(folder().path());
    for (auto _ : state) {
        BookLookup lookup(books, nullptr);
        for (const BookKey& key : keys)
            benchmark::DoNotOptimize(lookup.getValueFromAse(kBookSpace, key)[0]);
    }
}

BENCHMARK(openReadClose);
BENCHMARK(readSwatchFile);
BENCHMARK(readThroughStdio);
BENCHMARK(writeTheSameBytes);
BENCHMARK(writeSwatchFile);
BENCHMARK(readTheBookOnce);
BENCHMARK(lookUp4999References);

} // namespace
} // namespace chromalog
