#pragma once

#include "base/CopyOnWrite.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <iterator>
#include <vector>

namespace pirol {

/// An array that copies share page by page: copying costs a counter, and changing one element afterwards copies its
/// page and the list of pages. Comparing two arrays that came from one another looks only at the pages that differ.
template <class Element>
class PagedArray {
  public:
    /// Elements per page: what a few kilobytes hold.
    static constexpr std::size_t pageSize = std::bit_floor(std::max<std::size_t>(4096 / sizeof(Element), 8));

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const Element& operator[](std::size_t index) const { return (*(*pages_)[index / pageSize])[index % pageSize]; }
    /// An element to be changed. The reference holds until the array is copied or grows.
    Element& Edit(std::size_t index) { return pages_.Edit()[index / pageSize].Edit()[index % pageSize]; }

    Element& Append(Element element = {}) {
        std::vector<Page>& pages = pages_.Edit();
        if (pages.size() * pageSize == size_)
            pages.emplace_back();
        std::vector<Element>& page = pages.back().Edit();
        if (pages.size() > 1)
            page.reserve(pageSize); // an array of several pages goes on growing
        page.push_back(std::move(element));
        ++size_;
        return page.back();
    }

    /// Keeps only the first elements, of which there must be so many, and at least one.
    void Truncate(std::size_t count) {
        std::vector<Page>& pages = pages_.Edit();
        const std::size_t lastPage = (count - 1) / pageSize;
        std::vector<Element>& last = pages[lastPage].Edit();
        last.erase(last.begin() + static_cast<std::ptrdiff_t>((count - 1) % pageSize + 1), last.end());
        pages.erase(pages.begin() + static_cast<std::ptrdiff_t>(lastPage) + 1, pages.end());
        size_ = count;
    }

    /// The first index from `from` on at which the two differ, be it that one of them ends; the larger size when there
    /// is none.
    std::size_t FirstDifference(const PagedArray& other, std::size_t from = 0) const {
        const std::size_t end = std::max(size_, other.size_);
        if (pages_.SharesWith(other.pages_))
            return end;
        for (std::size_t index = from; index < end;) {
            if (index % pageSize == 0 && SharesPage(other, index / pageSize)) {
                index += pageSize;
            } else {
                if (index >= size_ || index >= other.size_ || !((*this)[index] == other[index]))
                    return index;
                ++index;
            }
        }
        return end;
    }

    /// The bytes of this array that the other one does not share, with what `heapBytes(element)` says of each element.
    template <class HeapBytes>
    std::size_t UnsharedBytes(const PagedArray& other, HeapBytes&& heapBytes) const {
        if (pages_.SharesWith(other.pages_))
            return 0;
        std::size_t bytes = pages_->size() * sizeof(Page);
        for (std::size_t page = 0; page < pages_->size(); ++page)
            if (!SharesPage(other, page)) {
                bytes += (*pages_)[page]->capacity() * sizeof(Element);
                for (const Element& element : *(*pages_)[page])
                    bytes += heapBytes(element);
            }
        return bytes;
    }

    bool operator==(const PagedArray& other) const { return size_ == other.size_ && FirstDifference(other) == size_; }

    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Element;
        using difference_type = std::ptrdiff_t;
        using pointer = const Element*;
        using reference = const Element&;

        Iterator(const PagedArray& array, std::size_t index) : array_(&array), index_(index) {}
        const Element& operator*() const { return (*array_)[index_]; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++index_;
            return before;
        }
        bool operator==(const Iterator&) const = default;

      private:
        const PagedArray* array_;
        std::size_t index_;
    };
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, size_}; }

  private:
    using Page = CopyOnWrite<std::vector<Element>>;

    bool SharesPage(const PagedArray& other, std::size_t page) const {
        return page < pages_->size() && page < other.pages_->size() &&
               (*pages_)[page].SharesWith((*other.pages_)[page]);
    }

    CopyOnWrite<std::vector<Page>> pages_;
    std::size_t size_ = 0;
};

} // namespace pirol
