// Direct-access result files (*.bin): one 64-bit IEEE real per record, little-endian,
// nothing else in the file. Record r sits at byte 8*(r-1), so a reader can seek to any
// index. Opening replaces an earlier file of the same name.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

namespace qm {

class DirectAccessFile {
public:
    DirectAccessFile() = default;
    DirectAccessFile(const DirectAccessFile&) = delete;
    DirectAccessFile& operator=(const DirectAccessFile&) = delete;
    DirectAccessFile(DirectAccessFile&& other) noexcept;
    DirectAccessFile& operator=(DirectAccessFile&& other) noexcept;
    ~DirectAccessFile();

    // Creates the file, replacing an earlier one.
    // False when it can't be created; writes to a file that is not open do nothing.
    bool open(const std::string& path);
    bool is_open() const { return file_ != nullptr; }

    // Writes value as record `record` (1-based).
    void write(long long record, double value);
    // Writes values[0..n-1] as records first..first+n-1.
    void write(long long first, const double* values, std::size_t n);

    void close();

private:
    std::FILE* file_ = nullptr;
    long long next_record_ = 1;  // record the file position stands at
};

// Writes a whole array as records 1..n of a new file at `path`; false when it can't.
bool write_bin_file(const std::string& path, const double* values, std::size_t n);

}  // namespace qm
