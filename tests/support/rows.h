#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <tuple>
#include <vector>

namespace kestor::testing {

/// The cases of a test: what each one states, then its values. A loop `for (const auto &[name, ...] : rows)` names the
/// case in every failure of its turn.
template <typename... Values>
class Rows {
public:
    using Row = std::tuple<const char *, Values...>;
    class Iterator {
    public:
        explicit Iterator(typename std::vector<Row>::const_iterator first) : row(first) {}
        const Row &operator*() {
            trace = std::make_unique<::testing::ScopedTrace>(__FILE__, __LINE__, std::get<0>(*row));
            return *row;
        }
        Iterator &operator++() {
            trace.reset();
            ++row;
            return *this;
        }
        bool operator!=(const Iterator &other) const { return row != other.row; }

    private:
        typename std::vector<Row>::const_iterator row;
        std::unique_ptr<::testing::ScopedTrace> trace{};
    };

    Rows(std::initializer_list<Row> list) : all(list) {}
    Iterator begin() const { return Iterator(all.begin()); }
    Iterator end() const { return Iterator(all.end()); }

private:
    std::vector<Row> all;
};

} // namespace kestor::testing
