// Three bytes are 24 bits, which four characters take six by six, the uppermost first.
//
// Written portably, twelve bits at a time become two characters by one look-up; read portably,
// four characters at a time, and one by one around line breaks.
//
// With vectors, 24 bytes become 32 characters. A line of 72 takes three such steps, of which the
// last overlaps the one before it. In the other direction a step reads 32 characters, but keeps
// only the whole groups in front of the first that is no data; the characters from there to the
// next group are taken one by one.
#include "nolk/core/strings/Base64Codec.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#ifdef NOLK_CORE_X86_VECTORS
#include <immintrin.h>
#endif

namespace nolk::base64 {

namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

using Pair = std::array<char, 2>;

constexpr std::array<Pair, 64 * 64> makePairs() {
    std::array<Pair, 64 * 64> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pairs[i] = {alphabet[i / 64], alphabet[i % 64]};
    }
    return pairs;
}

constexpr std::array<Pair, 64 * 64> pairs = makePairs();

// What a character isn't if it is no data.
constexpr std::uint8_t skipped = 0x40;
constexpr std::uint8_t refused = 0x80;

constexpr std::array<std::uint8_t, 256> makeValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(refused);
    for (std::uint8_t i = 0; i < 64; ++i) {
        values[static_cast<unsigned char>(alphabet[i])] = i;
    }
    values['\r'] = values['\n'] = skipped;
    return values;
}

constexpr std::array<std::uint8_t, 256> values = makeValues();

std::uint32_t byteAt(const char* in, std::size_t i) {
    return static_cast<unsigned char>(in[i]);
}

void writePair(char* out, std::uint32_t bits) {
    std::memcpy(out, pairs[bits].data(), sizeof(Pair));
}

char* writeGroup(std::uint32_t bits, char* out) {
    writePair(out, bits >> 12);
    writePair(out + 2, bits & 0xFFF);
    return out + 4;
}

char* encodeGroups(const char* in, std::size_t groups, char* out) {
    for (; groups > 0; --groups, in += 3) {
        out = writeGroup(byteAt(in, 0) << 16 | byteAt(in, 1) << 8 | byteAt(in, 2), out);
    }
    return out;
}

// One or two bytes at the end.
char* encodeRest(const char* in, std::size_t length, char* out) {
    writeGroup(byteAt(in, 0) << 16 | (length == 2 ? byteAt(in, 1) << 8 : 0), out);
    std::memset(out + length + 1, '=', 3 - length);
    return out + 4;
}

char* writeLineBreak(char* out) {
    std::memcpy(out, "\r\n", 2);
    return out + 2;
}

// Reads characters, and writes bytes whenever a group of four is complete.
class Reader {
public:
    Reader(const char* in, std::size_t length, char* out)
        : in_(in), last_(in + length), out_(out) {}

    const char* in() const { return in_; }
    char* out() const { return out_; }
    std::size_t left() const { return static_cast<std::size_t>(last_ - in_); }
    bool isAtGroup() const { return count_ == 0; }

    /** Passes over whole groups that were read by other means. */
    void pass(std::size_t groups) {
        in_ += groups * 4;
        out_ += groups * 3;
    }

    /** Takes one character; false if it is refused. */
    bool takeOne() {
        const std::uint8_t value = values[byteAt(in_++, 0)];
        if (value < 64) {
            bits_ = bits_ << 6 | value;
            if (++count_ == 4) {
                writeBytes(bits_, 3);
                count_ = 0;
            }
        }
        return value != refused;
    }

    /** Takes the next four characters if a group begins here and they are all data. */
    bool takeGroup() {
        const std::uint32_t a = values[byteAt(in_, 0)], b = values[byteAt(in_, 1)];
        const std::uint32_t c = values[byteAt(in_, 2)], d = values[byteAt(in_, 3)];
        if (!isAtGroup() || (a | b | c | d) >= 64) {
            return false;
        }
        in_ += 4;
        writeBytes(a << 18 | b << 12 | c << 6 | d, 3);
        return true;
    }

    /** Takes all that is left and returns the end of the bytes; null if a character is refused. */
    char* finish() {
        while (left() > 0) {
            if (!(left() >= 4 && takeGroup()) && !takeOne()) {
                return nullptr;
            }
        }
        if (count_ > 1) {
            writeBytes(bits_ << (4 - count_) * 6, count_ - 1);
        }
        return out_;
    }

private:
    void writeBytes(std::uint32_t bits, unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            *out_++ = static_cast<char>(bits >> (16 - i * 8));
        }
    }

    const char* in_;
    const char* last_;
    char* out_;
    std::uint32_t bits_ = 0;
    unsigned count_ = 0;
};

}  // namespace

char* encodePortably(const char* in, std::size_t length, char* out) {
    for (; length >= lineBytes; in += lineBytes, length -= lineBytes) {
        out = writeLineBreak(encodeGroups(in, lineBytes / 3, out));
    }
    out = encodeGroups(in, length / 3, out);
    const std::size_t rest = length % 3;
    return rest == 0 ? out : encodeRest(in + length - rest, rest, out);
}

char* decodePortably(const char* in, std::size_t length, char* out) {
    return Reader(in, length, out).finish();
}

#ifdef NOLK_CORE_X86_VECTORS

namespace {

constexpr std::size_t stepCharacters = 32;
constexpr std::size_t stepBytes = 24;

// A step in either direction goes by halves of twelve bytes, read or written as sixteen.
constexpr std::size_t halfBytes = stepBytes / 2;
constexpr std::size_t stepReach = halfBytes + 16;

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i loadHalves(const char* in) {
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + halfBytes));
    return _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
}

[[gnu::target("avx2"), gnu::always_inline]] inline void storeHalves(char* out, __m256i halves) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(halves));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + halfBytes),
                     _mm256_extracti128_si256(halves, 1));
}

// The six-bit values of 24 bytes, each in a byte of its own.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i splitIntoValues(__m256i halves) {
    // Each group of bytes a b c as b a c b: two 16-bit words of which the first holds values one
    // and two, and the second three and four.
    const __m256i spread = _mm256_shuffle_epi8(
        halves, _mm256_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10,  //
                                 1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10));
    // A product moves a word's bits up, and its upper half moves them down.
    const __m256i odd = _mm256_mulhi_epu16(_mm256_and_si256(spread, _mm256_set1_epi32(0x0FC0FC00)),
                                           _mm256_set1_epi32(0x04000040));
    const __m256i even = _mm256_mullo_epi16(_mm256_and_si256(spread, _mm256_set1_epi32(0x003F03F0)),
                                            _mm256_set1_epi32(0x01000010));
    return _mm256_or_si256(odd, even);
}

// The reverse: the bytes of 32 values, twelve at the front of each half.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i joinValues(__m256i values) {
    const __m256i twelve = _mm256_maddubs_epi16(values, _mm256_set1_epi16(0x0140));
    const __m256i twentyFour = _mm256_madd_epi16(twelve, _mm256_set1_epi32(0x00011000));
    return _mm256_shuffle_epi8(
        twentyFour, _mm256_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1,  //
                                     2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
}

// The distance from a value to its character depends on the range of the value: 52 to 63 are told
// apart by their difference to 51, the letters have 0, and 13 marks the upper-case ones.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i toCharacters(__m256i values) {
    constexpr char digit = '0' - 52;
    const __m256i distances =
        _mm256_setr_epi8('a' - 26, digit, digit, digit, digit, digit, digit, digit, digit, digit,
                         digit, '+' - 62, '/' - 63, 'A', 0, 0,  //
                         'a' - 26, digit, digit, digit, digit, digit, digit, digit, digit, digit,
                         digit, '+' - 62, '/' - 63, 'A', 0, 0);
    const __m256i upper = _mm256_cmpgt_epi8(_mm256_set1_epi8(26), values);
    const __m256i range = _mm256_or_si256(_mm256_subs_epu8(values, _mm256_set1_epi8(51)),
                                          _mm256_and_si256(upper, _mm256_set1_epi8(13)));
    return _mm256_add_epi8(values, _mm256_shuffle_epi8(distances, range));
}

// A character's high nibble tells its class, and each class has its own set of low nibbles; only
// "/" has another distance to its value than the "+" of its class. These are tables by nibble,
// twice over for the halves of a vector.
using NibbleTable = std::array<std::int8_t, 32>;

// The classes of a high nibble, a bit for each. One is for all that hold no data.
constexpr std::int8_t classOf(unsigned high) {
    constexpr std::int8_t noData = 1 << 5;
    constexpr std::int8_t classes[] = {noData, noData, 1 << 0, 1 << 1,
                                       1 << 2, 1 << 3, 1 << 2, 1 << 4};
    return high < std::size(classes) ? classes[high] : noData;
}

constexpr bool isData(unsigned high, unsigned low) {
    return values[high * 16 + low] < 64;
}

constexpr NibbleTable makeClasses() {
    NibbleTable table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        table[i] = classOf(i % 16);
    }
    return table;
}

// The classes that a low nibble isn't in.
constexpr NibbleTable makeRefusals() {
    NibbleTable table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        for (unsigned high = 0; high < 16; ++high) {
            if (!isData(high, i % 16)) {
                table[i] = static_cast<std::int8_t>(table[i] | classOf(high));
            }
        }
    }
    return table;
}

// What to add for the value, by high nibble; that of "/" stands one place below its own.
constexpr NibbleTable makeDistances() {
    NibbleTable table{};
    for (unsigned i = 0; i < table.size(); i += 16) {
        const std::int8_t distances[] = {0,    63 - '/', 62 - '+', 52 - '0',
                                         -'A', -'A',     26 - 'a', 26 - 'a'};
        for (unsigned high = 0; high < std::size(distances); ++high) {
            table[i + high] = distances[high];
        }
    }
    return table;
}

alignas(32) constexpr NibbleTable classes = makeClasses();
alignas(32) constexpr NibbleTable refusals = makeRefusals();
alignas(32) constexpr NibbleTable distances = makeDistances();

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i lookUp(const NibbleTable& table,
                                                                  __m256i nibbles) {
    return _mm256_shuffle_epi8(_mm256_load_si256(reinterpret_cast<const __m256i*>(table.data())),
                               nibbles);
}

[[gnu::target("avx2"), gnu::always_inline]] inline void encodeStep(const char* in, char* out) {
    const __m256i characters = toCharacters(splitIntoValues(loadHalves(in)));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), characters);
}

// Writes the bytes of 32 characters and returns a bit for each that is no data.
[[gnu::target("avx2"), gnu::always_inline]] inline std::uint32_t decodeStep(const char* in,
                                                                            char* out) {
    const __m256i characters = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in));
    const __m256i nibble = _mm256_set1_epi8(0x0F);
    const __m256i high = _mm256_and_si256(_mm256_srli_epi32(characters, 4), nibble);
    const __m256i low = _mm256_and_si256(characters, nibble);
    const __m256i refused = _mm256_and_si256(lookUp(classes, high), lookUp(refusals, low));
    const __m256i slashes = _mm256_cmpeq_epi8(characters, _mm256_set1_epi8('/'));
    const __m256i distance = lookUp(distances, _mm256_add_epi8(high, slashes));
    storeHalves(out, joinValues(_mm256_add_epi8(characters, distance)));
    const __m256i data = _mm256_cmpeq_epi8(refused, _mm256_setzero_si256());
    return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(data));
}

}  // namespace

[[gnu::target("avx2")]] char* encodeAvx2(const char* in, std::size_t length, char* out) {
    constexpr std::size_t overlapping = lineBytes - stepBytes;
    while (length >= overlapping + stepReach) {
        encodeStep(in, out);
        encodeStep(in + stepBytes, out + stepCharacters);
        encodeStep(in + overlapping, out + lineCharacters - stepCharacters);
        out = writeLineBreak(out + lineCharacters);
        in += lineBytes;
        length -= lineBytes;
    }
    return encodePortably(in, length, out);
}

[[gnu::target("avx2,bmi")]] char* decodeAvx2(const char* in, std::size_t length, char* out) {
    // As long as so much is left, there is room for the bytes that a step writes too many.
    constexpr std::size_t least = (stepReach + 2) / 3 * 4;
    Reader reader(in, length, out);
    while (reader.left() >= least) {
        const std::uint32_t others = decodeStep(reader.in(), reader.out());
        if (others == 0) [[likely]] {
            reader.pass(stepCharacters / 4);  // a constant, so that steps may overlap
            continue;
        }
        reader.pass(static_cast<std::size_t>(std::countr_zero(others)) / 4);
        // Up to the next group that may begin a step; mostly that is a line break alone.
        do {
            if (!reader.takeOne()) {
                return nullptr;
            }
        } while (reader.left() > 0 && (!reader.isAtGroup() || *reader.in() == '\n'));
    }
    return reader.finish();
}

char* encode(const char* in, std::size_t length, char* out) {
    static const auto chosen = processor::hasAvx2() ? encodeAvx2 : encodePortably;
    return chosen(in, length, out);
}

char* decode(const char* in, std::size_t length, char* out) {
    static const auto chosen = processor::hasAvx2() ? decodeAvx2 : decodePortably;
    return chosen(in, length, out);
}

#else

char* encode(const char* in, std::size_t length, char* out) {
    return encodePortably(in, length, out);
}

char* decode(const char* in, std::size_t length, char* out) {
    return decodePortably(in, length, out);
}

#endif

}  // namespace nolk::base64
