#include "components/HarmonicFile.h"

#include <fstream>

#include "base/TextLine.h"
#include "base/StringOperation.h"
#include "base/ValueReader.h"

namespace qm {

namespace {

class HarmonicFileReader {
public:
    HarmonicFileReader(RunContext& ctx, const std::string& folder, const std::string& name,
                       HarmonicFileContent& content)
        : ctx_(ctx), name_(name), c_(content) {
        open_text_file(in_, side_file_path(folder, name));
    }

    bool fail() {
        ctx_.log_append("Error occurs when reading " + name_ + " in line " + std::to_string(counter_));
        return false;
    }

    // The next line, tabs and commas made blanks and periods; false past the end.
    bool next() {
        ++counter_;
        if (!in_.is_open() || !read_text_line(in_, line_)) return false;
        STRINGOPERATION::STRINGDELETETAB(line_);
        return true;
    }

    bool skip(int lines) {
        for (int i = 0; i < lines; ++i)
            if (!next()) return fail();
        return true;
    }

    // A count behind a label of `label` characters, blanks removed from the whole line.
    bool count(int label, int& value) {
        if (!next()) return fail();
        std::string text = line_;
        STRINGOPERATION::STRINGADJUST(text);
        const std::string rest = text.size() > static_cast<std::size_t>(label) ? text.substr(label) : std::string();
        if (!ValueReader(rest).read(value)) return fail();
        return true;
    }

    // Lines up to and including the first that contains the keyword.
    bool find(const char* keyword) {
        do {
            if (!next()) return fail();
        } while (line_.find(keyword) == std::string::npos);
        return true;
    }

    bool axis() {
        if (!next()) return fail();
        ValueReader values(line_);
        for (int k = 0; k < c_.M; ++k)
            if (!values.read(c_.axis[static_cast<std::size_t>(k)])) return fail();
        return true;
    }

    bool rows(std::vector<double>& table) {
        for (int j = 1; j <= c_.N; ++j) {
            if (!next()) return fail();
            ValueReader values(line_);
            if (!values.read(c_.order[static_cast<std::size_t>(j - 1)])) return fail();
            for (int k = 1; k <= c_.M; ++k)
                if (!values.read(table[static_cast<std::size_t>((j - 1) * c_.M + k - 1)])) return fail();
        }
        return true;
    }

    // Keyword, a free line, the axis, two free lines, the rows.
    bool block_with_axis(const char* keyword, std::vector<double>& table) {
        return find(keyword) && skip(1) && axis() && skip(2) && rows(table);
    }

private:
    RunContext& ctx_;
    std::string name_;
    std::ifstream in_;
    HarmonicFileContent& c_;
    std::string line_;
    int counter_ = 0;
};

}  // namespace

bool read_harmonic_file(RunContext& ctx, const std::string& folder, const std::string& name,
                        const HarmonicFileLayout& layout, HarmonicFileContent& content) {
    HarmonicFileReader file(ctx, folder, name, content);
    content = HarmonicFileContent{};
    if (!file.skip(1) || !file.count(7, content.N) || !file.count(layout.axisLabelLength, content.M)) return false;
    if (content.N > layout.maxOrders) {
        ctx.log_append(layout.ordersLimitMessage);
        return false;
    }
    if (content.M > layout.maxAxis) {
        ctx.log_append(layout.axisLimitMessage);
        return false;
    }
    // A count of zero or below reads no rows.
    const auto n = static_cast<std::size_t>(content.N > 0 ? content.N : 0);
    const auto m = static_cast<std::size_t>(content.M > 0 ? content.M : 0);
    content.axis.assign(m, 0.0);
    for (auto* table : {&content.cosine, &content.sine, &content.resultant, &content.phase}) table->assign(n * m, 0.0);
    // Line 5 is the first tested for the first keyword. "SINE" stands inside "COSINE": its
    // search starts behind the rows of the cosine block.
    return file.skip(1) && file.block_with_axis("COSINE", content.cosine) && file.find("SINE") && file.skip(4) &&
           file.rows(content.sine) && file.block_with_axis("RESULTANT", content.resultant) &&
           file.block_with_axis("PHASE", content.phase);
}

}  // namespace qm
