// The base of the library's byte streams: a state word and close.
//
// The state word is a public field because the deck reader tests and clears it
// directly between reads. Its bits:
//   eofbit   1  the end of the input was reached
//   limitbit 2  the last getline filled its buffer and the line goes on behind it
//   failbit  4  nothing could be read (or written)
// Bits stay set until somebody clears them; a read does not refuse to run because
// bits are set, it only adds the bits of its own outcome.
#ifndef AIO_IOS_H
#define AIO_IOS_H

class aio_ios {
public:
    enum StateBits { eofbit = 1, limitbit = 2, failbit = 4 };

    int state;

    virtual ~aio_ios() = default;
    aio_ios(const aio_ios&) = delete;
    aio_ios& operator=(const aio_ios&) = delete;

    // Releases what the stream holds. Calling it again, or on a stream that holds
    // nothing, does nothing.
    virtual void close() {}

    bool good() const { return state == 0; }
    bool eof() const { return (state & eofbit) != 0; }
    bool fail() const { return (state & failbit) != 0; }
    void clear() { state = 0; }

protected:
    aio_ios() : state(0) {}
};

#endif
