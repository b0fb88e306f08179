// Prepared statements kept for texts of the same shape.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "database/shape.h"

namespace cuvexa::database {

/// So many statements at most: the one used last is forgotten last. `Kept` is an engine's own, with the text of its
/// `shape` and whether it `serves` another text of that shape.
template <class Kept>
class Kept_statements {
public:
    explicit Kept_statements(std::size_t most) : most_(most) {}

    /// The statement for that shape, or null.
    Kept* find(const Shape& shape) {
        const auto [first, last] = by_shape_.equal_range(shape.marked());
        const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second->serves(shape); });
        if (found == last) return nullptr;
        kept_.splice(kept_.begin(), kept_, found->second);
        return &kept_.front();
    }

    Kept* keep(Kept&& statement) {
        while (kept_.size() >= most_) forget(std::prev(kept_.end()));
        kept_.push_front(std::move(statement));
        by_shape_.emplace(kept_.front().shape, kept_.begin());
        return &kept_.front();
    }

    /// Forgets the statement that was found or kept last.
    void forget_last_used() { forget(kept_.begin()); }

    void forget_all() {
        by_shape_.clear();
        kept_.clear();
    }

    std::size_t size() const noexcept { return kept_.size(); }

private:
    using Place = typename std::list<Kept>::iterator;

    void forget(Place place) {
        const auto [first, last] = by_shape_.equal_range(place->shape);
        by_shape_.erase(std::find_if(first, last, [&](const auto& entry) { return entry.second == place; }));
        kept_.erase(place);
    }

    std::size_t most_;
    std::list<Kept> kept_;  ///< last used first
    std::unordered_multimap<std::string_view, Place> by_shape_;
};

}  // namespace cuvexa::database
