// Memory whose last usable byte is followed by a page that may not be read
// or written: a kernel that touches one byte past its operand crashes.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>

namespace kt {

class Guarded {
public:
    explicit Guarded(size_t bytes)
    {
        page_ = static_cast<size_t>(sysconf(_SC_PAGESIZE));
        span_ = (bytes + page_ - 1) / page_ * page_ + page_;
        base_ = static_cast<char*>(mmap(nullptr, span_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(base_ + span_ - page_, page_, PROT_NONE);
        data_ = base_ + span_ - page_ - bytes;
    }
    ~Guarded() { munmap(base_, span_); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;
    // The usable memory from `skipBytes` on.
    template <class T>
    T* as(size_t skipBytes = 0) const
    {
        return reinterpret_cast<T*>(data_ + skipBytes);
    }

private:
    char* base_;
    char* data_;
    size_t page_, span_;
};

}  // namespace kt
