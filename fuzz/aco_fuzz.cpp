#include "fuzz_support.h"

#include "formats/aco_reader.h"
#include "formats/aco_writer.h"

namespace chromalog {
namespace {

/// Every book has the file itself as its contents.
class EchoShelf : public ColourBookRegistry {
  public:
    explicit EchoShelf(Bytes file) : file_(file) {}
    std::optional<std::vector<std::uint8_t>> readBook(std::string_view) const override {
        return std::vector<std::uint8_t>(file_.begin(), file_.end());
    }

  private:
    Bytes file_;
};

/// A list that was read is written, read and written again: both files are the same.
void expectSameFileAgain(ListRecords records, std::int16_t count) {
    std::vector<std::uint8_t> first, second;
    writeAco(first, records, count);
    const AcoHeader header = readAcoHeader(first, 0);
    readAcoRecords(first, header, 0, records, fuzz::convert, EchoShelf({}));
    writeAco(second, records, header.viewCount);
    fuzz::require(first == second, "a written list reads back the same");
}

} // namespace
} // namespace chromalog

/// Two bytes of start index, then the swatch file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace chromalog;
    ByteCursor cursor({data, size});
    const auto start = static_cast<std::int16_t>(cursor.word());
    const Bytes file = size > 2 ? Bytes(data + 2, size - 2) : Bytes();
    const AcoHeader header = readAcoHeader(file, start);
    fuzz::require(header.overLimit ? *header.overLimit >= kListCapacity
                                   : header.count + start < kListCapacity,
                  "the alert is for files that reach the capacity");
    const ListRecords records = fuzz::listRecords();
    const auto second = readAcoRecords(file, header, start, records, fuzz::convert, EchoShelf(file));
    const std::int16_t count = second.value_or(header.viewCount);
    if (count >= 0 && count < 300) expectSameFileAgain(records, count);
    return 0;
}
