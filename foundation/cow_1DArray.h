// Two-level array with shared blocks.
//
// Elements live in blocks of 1 << shift behind a block table. Copying an array shares
// the table; a write separates the table and then the one block written to, so two
// arrays that have diverged still share every block neither wrote to. Blocks come into
// being at the first write into them, default-constructed.
#ifndef COW_1DARRAY_H
#define COW_1DARRAY_H

#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

template <class T>
class cow_1DArray {
    static const std::size_t kClassBlockBytes = 4096;
    struct Block {
        int refs;
        T* data;
    };

public:
    cow_1DArray() : m_slots(16), m_shift(4), m_end(0), m_head(0), m_tableRefs(nullptr), m_table(nullptr) {}

    // An array that is going to hold `n` elements: large enough blocks and enough slots
    // that it never regrows. A block of a class type is default-constructed whole at its
    // first write, so its blocks stay near kClassBlockBytes however large `n` is: room
    // for many keywords must not make thousands of them for the first one.
    explicit cow_1DArray(int n) : cow_1DArray() {
        if (n <= 0) return;
        int log2 = 31 - __builtin_clz(static_cast<unsigned>(n));
        if (log2 - 3 > 4) m_shift = log2 - 3;
        if (!std::is_trivially_default_constructible<T>::value)
            while (m_shift > 4 && (sizeof(T) << m_shift) > kClassBlockBytes) --m_shift;
        float f = static_cast<float>(n);
        unsigned bits;
        std::memcpy(&bits, &f, sizeof bits);
        m_slots = 16 + static_cast<int>(((bits & 0x7fffffu) + 0x8fffffu) >> 20);
        int needed = BlocksFor(n);
        if (needed > m_slots) m_slots = needed + 16;
        m_end = n;
    }

    cow_1DArray(const cow_1DArray& o)
        : m_slots(o.m_slots), m_shift(o.m_shift), m_end(o.m_end), m_head(o.m_head),
          m_tableRefs(o.m_tableRefs), m_table(o.m_table) {
        if (m_tableRefs) ++*m_tableRefs;
    }
    cow_1DArray(cow_1DArray&& o) noexcept
        : m_slots(o.m_slots), m_shift(o.m_shift), m_end(o.m_end), m_head(o.m_head),
          m_tableRefs(o.m_tableRefs), m_table(o.m_table) {
        o.m_tableRefs = nullptr;
        o.m_table = nullptr;
        o.m_end = o.m_head = 0;
    }
    cow_1DArray& operator=(const cow_1DArray& o) {
        if (this == &o) return *this;
        if (o.m_tableRefs) ++*o.m_tableRefs;
        ReleaseTable();
        TakeFields(o);
        return *this;
    }
    cow_1DArray& operator=(cow_1DArray&& o) noexcept {
        if (this != &o) {
            ReleaseTable();
            TakeFields(o);
            o.m_tableRefs = nullptr;
            o.m_table = nullptr;
            o.m_end = o.m_head = 0;
        }
        return *this;
    }
    ~cow_1DArray() { ReleaseTable(); }

    // Number of elements from the head to the logical end.
    int Size() const { return m_end - m_head; }

    // Writable element; extends the array when i lies at or beyond the end.
    T& Get(int i) {
        int p = m_head + i;
        if (p >= m_end) {
            EnsureSlots(BlocksFor(p + 1));
            m_end = p + 1;
        }
        return WritableAt(p);
    }

    // Const element, no copy, no bounds test. A block not yet made reads as default T.
    const T& PartialArrayConstGet(int i) const {
        int p = m_head + i;
        if (m_table) {
            const Block* b = m_table[p >> m_shift];
            if (b) return b->data[p & ((1 << m_shift) - 1)];
        }
        return DefaultValue();
    }
    const T& ConstGet(int i) const { return PartialArrayConstGet(i); }

    // Room for one element in front of the first; returns it.
    T& GetHead() {
        if (m_head == 0) {
            int used = BlocksFor(m_end);
            EnsureSlots(used + 1);
            UnshareTable();
            std::memmove(m_table + 1, m_table, sizeof(Block*) * static_cast<size_t>(used));
            m_table[0] = nullptr;
            m_head += BlockSize();
            m_end += BlockSize();
        }
        --m_head;
        return WritableAt(m_head);
    }

    // Resets the first element and moves the head past it, releasing a block it leaves.
    void DropHead() {
        if (m_head >= m_end) return;
        WritableAt(m_head) = T();
        ++m_head;
        if ((m_head & (BlockSize() - 1)) == 0) {
            UnshareTable();
            int b = (m_head >> m_shift) - 1;
            ReleaseBlock(m_table[b]);
            m_table[b] = nullptr;
            // Slide the table down so that a queue does not grow its table forever.
            int used = BlocksFor(m_end);
            std::memmove(m_table, m_table + 1, sizeof(Block*) * static_cast<size_t>(used - 1));
            m_table[used - 1] = nullptr;
            m_head -= BlockSize();
            m_end -= BlockSize();
        }
    }

    // Sets the logical end to head + n. Grow(0) empties the array and drops its storage;
    // a smaller non-zero n moves the end and releases nothing.
    void Grow(int n) {
        if (n <= 0) {
            ReleaseTable();
            m_end = m_head = 0;
            return;
        }
        if (!m_table) m_shift = 4;
        EnsureSlots(BlocksFor(m_head + n));
        m_end = m_head + n;
    }

    void SetFromArray(const T* values, int n) {
        Grow(0);
        if (n <= 0) return;
        Grow(n);
        for (int i = 0; i < n; ++i) WritableAt(i) = values[i];
    }

private:
    void TakeFields(const cow_1DArray& o) {
        m_slots = o.m_slots;
        m_shift = o.m_shift;
        m_end = o.m_end;
        m_head = o.m_head;
        m_tableRefs = o.m_tableRefs;
        m_table = o.m_table;
    }

    int BlockSize() const { return 1 << m_shift; }
    int BlocksFor(int physicalEnd) const { return (physicalEnd + BlockSize() - 1) >> m_shift; }

    static const T& DefaultValue() {
        static const T empty{};
        return empty;
    }

    T& WritableAt(int p) {
        UnshareTable();
        Block*& b = m_table[p >> m_shift];
        if (!b) {
            b = new Block{1, new T[static_cast<size_t>(BlockSize())]};
        } else if (b->refs != 1) {
            Block* copy = new Block{1, new T[static_cast<size_t>(BlockSize())]};
            for (int i = 0; i < BlockSize(); ++i) copy->data[i] = b->data[i];
            --b->refs;
            b = copy;
        }
        return b->data[p & (BlockSize() - 1)];
    }

    void EnsureSlots(int needed) {
        if (m_table && needed <= m_slots) return;
        int slots = m_slots;
        if (needed > slots) {
            slots = needed + 16;
            if (slots < 2 * m_slots) slots = 2 * m_slots;  // amortised growth for long lists
        }
        Block** table = new Block*[static_cast<size_t>(slots)]();
        if (m_table) {
            for (int i = 0; i < m_slots; ++i) {
                table[i] = m_table[i];
                if (table[i]) ++table[i]->refs;
            }
        }
        ReleaseTable();
        m_table = table;
        m_tableRefs = new int(1);
        m_slots = slots;
    }

    void UnshareTable() {
        if (!m_table) {
            EnsureSlots(m_slots);
            return;
        }
        if (*m_tableRefs == 1) return;
        Block** table = new Block*[static_cast<size_t>(m_slots)]();
        for (int i = 0; i < m_slots; ++i) {
            table[i] = m_table[i];
            if (table[i]) ++table[i]->refs;
        }
        --*m_tableRefs;
        m_table = table;
        m_tableRefs = new int(1);
    }

    static void ReleaseBlock(Block* b) {
        if (b && --b->refs == 0) {
            delete[] b->data;
            delete b;
        }
    }

    void ReleaseTable() {
        if (m_tableRefs && --*m_tableRefs == 0) {
            for (int i = 0; i < m_slots; ++i) ReleaseBlock(m_table[i]);
            delete[] m_table;
            delete m_tableRefs;
        }
        m_table = nullptr;
        m_tableRefs = nullptr;
    }

    int m_slots;
    int m_shift;
    int m_end;   // physical index one past the last element
    int m_head;  // physical index of element 0
    int* m_tableRefs;
    Block** m_table;
};

// Iterates over a snapshot of an array, from a first index up to an end the caller sets.
template <class T>
class cow_1DArrayIter {
public:
    cow_1DArrayIter(const cow_1DArray<T>& array, int first, int end)
        : m_array(array), m_first(first), m_current(first), m_end(end) {}
    void First() { m_current = m_first; }
    void Next() { ++m_current; }
    bool IsDone() const { return m_current >= m_end; }
    int Index() const { return m_current; }
    const T& Current() const { return m_array.ConstGet(m_current); }

private:
    cow_1DArray<T> m_array;
    int m_first;
    int m_current;
    int m_end;
};

#endif
