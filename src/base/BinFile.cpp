#include "base/BinFile.h"

#include <bit>
#include <utility>


namespace qm {

static_assert(std::endian::native == std::endian::little,
              "result files are little-endian; a big-endian build must swap bytes");
static_assert(sizeof(double) == 8, "a record is one 64-bit real");

DirectAccessFile::DirectAccessFile(DirectAccessFile&& other) noexcept
    : file_(std::exchange(other.file_, nullptr)), next_record_(other.next_record_) {}

DirectAccessFile& DirectAccessFile::operator=(DirectAccessFile&& other) noexcept {
    if (this != &other) {
        close();
        file_ = std::exchange(other.file_, nullptr);
        next_record_ = other.next_record_;
    }
    return *this;
}

DirectAccessFile::~DirectAccessFile() { close(); }

bool DirectAccessFile::open(const std::string& path) {
    close();
    file_ = std::fopen(path.c_str(), "wb");
    next_record_ = 1;
    if (file_ != nullptr) std::setvbuf(file_, nullptr, _IOFBF, 1 << 16);
    return file_ != nullptr;
}

void DirectAccessFile::write(long long record, double value) { write(record, &value, 1); }

void DirectAccessFile::write(long long first, const double* values, std::size_t n) {
    if (file_ == nullptr || first < 1 || n == 0) return;
    if (first != next_record_) {
        if (std::fseek(file_, static_cast<long>((first - 1) * 8), SEEK_SET) != 0) return;
    }
    std::fwrite(values, sizeof(double), n, file_);
    next_record_ = first + static_cast<long long>(n);
}

void DirectAccessFile::close() {
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
}

bool write_bin_file(const std::string& path, const double* values, std::size_t n) {
    DirectAccessFile file;
    if (!file.open(path)) return false;
    file.write(1, values, n);
    file.close();
    return true;
}

}  // namespace qm
