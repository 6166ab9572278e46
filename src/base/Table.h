// Table<T>: the owner-allocated, 1-based array of plain records every stage works on.
//
// A table starts unallocated; allocate(n) frees what it held and makes n rows at their
// defaults. Row numbers run from 1 to size(); 0 is the "not found" answer of the lookups,
// never a valid row. size() is 0 while the table is unallocated, so loops over an empty
// kind simply do nothing.
//
// Every access is checked, in every build: row numbers and node numbers come from the
// model file, and a wrong one must end the run with a message rather than write outside
// the table. A bad index throws std::out_of_range, which the run catches.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace qm {

[[noreturn, gnu::cold, gnu::noinline]] inline void throw_index_error(const char* what, long long index,
                                                                     long long size) {
    throw std::out_of_range(std::string(what) + " " + std::to_string(index) + " outside 1.." +
                            std::to_string(size));
}

template <class T>
class Table {
public:
    bool allocated() const { return allocated_; }

    // Frees the table, then makes n rows at their defaults. n <= 0 leaves it allocated and empty.
    void allocate(int n) {
        rows_.clear();
        rows_.shrink_to_fit();
        rows_.resize(n > 0 ? static_cast<std::size_t>(n) : 0U);
        allocated_ = true;
    }

    void deallocate() {
        rows_.clear();
        rows_.shrink_to_fit();
        allocated_ = false;
    }

    int size() const { return static_cast<int>(rows_.size()); }

    T& operator()(int row) { return rows_[index(row)]; }
    const T& operator()(int row) const { return rows_[index(row)]; }

    // Contiguous storage, row 1 first: for writers that dump a whole array.
    T* data() { return rows_.data(); }
    const T* data() const { return rows_.data(); }

private:
    std::size_t index(int row) const {
        if (row < 1 || row > size()) [[unlikely]]
            throw_index_error("table row", row, size());
        return static_cast<std::size_t>(row - 1);
    }

    std::vector<T> rows_;
    bool allocated_ = false;
};

// A 1-based matrix stored column after column: element (i, j) sits at flat position
// (j-1)*rows + i, which is the layout of the result files and of the mode shape array.
template <class T>
class Array2D {
public:
    bool allocated() const { return allocated_; }

    void allocate(int rows, int cols) {
        rows_ = rows > 0 ? rows : 0;
        cols_ = cols > 0 ? cols : 0;
        data_.assign(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_), T{});
        allocated_ = true;
    }

    void deallocate() {
        data_.clear();
        data_.shrink_to_fit();
        rows_ = cols_ = 0;
        allocated_ = false;
    }

    int rows() const { return rows_; }
    int cols() const { return cols_; }

    T& operator()(int i, int j) { return data_[index(i, j)]; }
    const T& operator()(int i, int j) const { return data_[index(i, j)]; }

    T* data() { return data_.data(); }
    const T* data() const { return data_.data(); }
    std::size_t flat_size() const { return data_.size(); }

private:
    std::size_t index(int i, int j) const {
        if (i < 1 || i > rows_) [[unlikely]]
            throw_index_error("matrix row", i, rows_);
        if (j < 1 || j > cols_) [[unlikely]]
            throw_index_error("matrix column", j, cols_);
        return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(rows_) + static_cast<std::size_t>(i - 1);
    }

    std::vector<T> data_;
    int rows_ = 0;
    int cols_ = 0;
    bool allocated_ = false;
};

// Rows of a table; 0 while it is unallocated.
template <class T>
int row_count(const Table<T>& table) {
    return table.allocated() ? table.size() : 0;
}

// True when row i exists.
template <class T>
bool is_row(const Table<T>& table, int i) {
    return i >= 1 && i <= row_count(table);
}

// The first row whose ID equals id; 0 when there is none or the table is unallocated.
template <class T>
int first_row_with_id(const Table<T>& table, int id) {
    for (int i = 1; i <= row_count(table); ++i)
        if (table(i).ID == id) return i;
    return 0;
}

}  // namespace qm
