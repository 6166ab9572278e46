#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <sstream>

#include "../ChildProcess.h"
#include "../TestSupport.h"
#include "base/TextLine.h"

namespace qm {
namespace {

// A stream of `length` characters 'x' without a line end, then "\r\nnext\n", produced in
// small pieces so that the test itself holds no long text.
class LongLine : public std::streambuf {
public:
    explicit LongLine(std::size_t length) : left_(length) { chunk_.fill('x'); }

protected:
    int_type underflow() override {
        if (left_ > 0) {
            const std::size_t n = std::min(left_, chunk_.size());
            left_ -= n;
            setg(chunk_.data(), chunk_.data(), chunk_.data() + n);
        } else if (!tail_done_) {
            tail_done_ = true;
            setg(tail_, tail_, tail_ + 7);
        } else {
            return traits_type::eof();
        }
        return traits_type::to_int_type(*gptr());
    }

private:
    std::array<char, 65536> chunk_{};
    std::size_t left_;
    char tail_[8] = "\r\nnext\n";
    bool tail_done_ = false;
};

TEST(TextLine, AnEndlessLineIsCutWithoutBeingKept) {
    const long before = test::resident_kib();
    const auto outcome = test::run_in_child(
        [] {
            LongLine source(std::size_t{400} << 20);  // 400 MiB in one line
            std::istream in(&source);
            std::string line;
            if (!read_text_line(in, line) || line != std::string(LINE_LENGTH, 'x')) return 1;
            if (!read_text_line(in, line) || line.substr(0, 5) != "next ") return 2;
            return read_text_line(in, line) ? 3 : 0;
        },
        120.0);
    ASSERT_TRUE(outcome.finished);
    EXPECT_EQ(outcome.exit_code, 0);
    EXPECT_LT(outcome.peak_kib - before, 100 * 1024) << "KiB beyond the parent's memory";
}

TEST(TextLine, CarriageReturnsAndLengthsAtTheLimit) {
    const std::string full(LINE_LENGTH, 'a');
    std::istringstream in("abc\r\n" + full + "\r\n" + full + "b\n" + full + "bc\r\nlast");
    std::string line;
    ASSERT_TRUE(read_text_line(in, line));
    EXPECT_EQ(line, "abc" + std::string(LINE_LENGTH - 3, ' '));
    ASSERT_TRUE(read_text_line(in, line));  // a full line and its carriage return
    EXPECT_EQ(line, full);
    ASSERT_TRUE(read_text_line(in, line));  // one character too many
    EXPECT_EQ(line, full);
    ASSERT_TRUE(read_text_line(in, line));
    EXPECT_EQ(line, full);
    ASSERT_TRUE(read_text_line(in, line));  // the last line needs no line end
    EXPECT_EQ(line.substr(0, 5), "last ");
    EXPECT_FALSE(read_text_line(in, line));
    EXPECT_EQ(line, std::string(LINE_LENGTH, ' '));
    EXPECT_FALSE(read_text_line(in, line));
}

TEST(TextLine, OnlyRegularFilesOpen) {
    test::ScratchDir dir;
    test::write_file(dir / "plain.txt", "x\n");
    ASSERT_EQ(mkfifo((dir / "pipe").c_str(), 0600), 0);
    std::ifstream in;
    EXPECT_TRUE(open_text_file(in, (dir / "plain.txt").string()));
    // Files of size 0 read as ended, also a pseudo-file of the system that never would.
    test::write_file(dir / "empty.txt", "");
    for (const std::string& name : {(dir / "empty.txt").string(), std::string("/proc/self/pagemap")}) {
        EXPECT_TRUE(open_text_file(in, name)) << name;
        std::string line;
        EXPECT_FALSE(read_text_line(in, line)) << name;
    }
    for (const std::string& name : {(dir / "pipe").string(), dir.str(), std::string("/dev/zero"),
                                   (dir / "missing").string(), std::string()}) {
        EXPECT_FALSE(open_text_file(in, name)) << name;
        EXPECT_FALSE(in.is_open()) << name;
        std::string line;
        EXPECT_FALSE(read_text_line(in, line)) << name;
    }
}

}  // namespace
}  // namespace qm
