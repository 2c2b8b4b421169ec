#include "tests/mutations/Mutation.h"

#include <algorithm>

namespace nux {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view tokens[] = {
    // Numbers
    "0", "-0", "1", "-1", "127", "128", "255", "256", "32767", "65536", "2147483647", "-2147483648",
    "4294967295", "4294967296", "9223372036854775808", "1e308", "1e309", "-1e309", "1e-400", "1e+", "1.5.2",
    ".5", "5.", "1,5", "+5", "- 5", "0x1p3", "0x", "inf", "-INF", "nan", "1#QNAN", "12abc", " 7", "7 ",
    "1e99999999999", "000000000000000000000000000000000000001", "M8", "1/2",
    // XML
    "<", ">", "&", "\"", "'", "</", "/>", "<a>", "</a>", "<a/>", "<!--", "-->", "<![CDATA[", "]]>", "<?x?>",
    "<?xml version='1.0'?>", "<!DOCTYPE a>", "<!DOCTYPE a [<!ENTITY e 'text'>]>", "&e;", "&amp;", "&lt;",
    "&#0;", "&#x1F600;", "&#xD800;", "&#xFFFE;", "&#99999999;", "xmlns='u'", "xmlns:p='u'",
    "p:", "<p:a xmlns:p='v'/>", " A='1'", "<Row/>", "<Row>", "</Row>", "<Part>", "</Part>", "<ID>", "</ID>",
    "<MsgID>", "</MsgID>", "<Text>", "<Messages>", "</Messages>", "<Dimensions>", "</Dimensions>",
    "xml:space='preserve'", "<x dt:dt='int' xmlns:dt='urn:schemas-microsoft-com:datatypes'>7</x>",
    " dt:dt='bin.hex' xmlns:dt='urn:schemas-microsoft-com:datatypes'",
    // Selections, paths and names
    "//Part[ID='x']", "[", "]", "x']|//*['", "\\", "/", "//", "..", ".", ":", "*", "?", "%20", "%", "#", "|",
    "file://", "FILE://", "file:///", "C:\\", "Z:\\", "\\\\?\\", "con", "nul", "length", "Features",
    "AutoFeatures", "COMMON", "%TEMP%",
    // Bytes
    "\0"sv, "\n", "\r\n", "\t", " ", "\x01", "\x7F", "\x95", "\xE4", "\xC3\xA4", "\xED\xA0\x80",
    "\xEF\xBB\xBF", "\xF0\x9F\x98\x80", "\xFF", "\xFF\xFE", "\xFE\xFF"};

constexpr std::string_view encodings[] = {
    "utf-8",     "UTF-16", "utf-16le", "ISO-8859-1", "windows-1252", "shift_jis",    "iso-2022-jp", "UTF-7",
    "x-no-such", "",       "ucs-4",    "ebcdic-us",  "us-ascii",     "windows-1251", "gb2312"};

struct Chunk {
    std::size_t start;
    std::size_t length;
};

Chunk AnyChunk(Random& random, const std::string& bytes) noexcept {
    if (bytes.empty())
        return {0, 0};
    const std::size_t start = random.Below(bytes.size());
    const std::size_t left = bytes.size() - start;
    const std::size_t most = random.OneIn(4) ? left : std::min<std::size_t>(left, 40);
    return {start, 1 + random.Below(most)};
}

/// One line, its end included.
Chunk AnyLine(Random& random, const std::string& text) noexcept {
    if (text.empty())
        return {0, 0};
    const std::size_t within = random.Below(text.size());
    const std::size_t before = within == 0 ? std::string::npos : text.rfind('\n', within - 1);
    const std::size_t start = before == std::string::npos ? 0 : before + 1;
    const std::size_t end = text.find('\n', start);
    return {start, (end == std::string::npos ? text.size() : end + 1) - start};
}

void Double(std::string& bytes, Chunk chunk) {
    bytes.insert(chunk.start, bytes.substr(chunk.start, chunk.length));
}

void Swap(std::string& bytes, Chunk a, Chunk b) {
    if (a.start > b.start)
        std::swap(a, b);
    if (a.start + a.length > b.start)
        return;
    const std::string first = bytes.substr(a.start, a.length);
    const std::string second = bytes.substr(b.start, b.length);
    bytes.replace(b.start, b.length, first);
    bytes.replace(a.start, a.length, second);
}

void ChangeBytes(Random& random, std::string& bytes) {
    const Chunk chunk = AnyChunk(random, bytes);
    switch (random.Below(8)) {
        case 0:
            if (!bytes.empty())
                bytes[chunk.start] = static_cast<char>(bytes[chunk.start] ^ (1 << random.Below(8)));
            break;
        case 1:
            if (!bytes.empty())
                bytes[chunk.start] = static_cast<char>(random.Next());
            break;
        case 2:
            bytes.erase(chunk.start, chunk.length);
            break;
        case 3:
            Double(bytes, chunk);
            break;
        case 4:
            Swap(bytes, chunk, AnyChunk(random, bytes));
            break;
        case 5:
            bytes.insert(chunk.start, Token(random));
            break;
        case 6:
            bytes.replace(chunk.start, std::min<std::size_t>(chunk.length, 8), Token(random));
            break;
        case 7:
            if (random.OneIn(4))
                bytes.resize(chunk.start);
            else
                bytes.insert(chunk.start, 1 + random.Below(4), '\0');
            break;
    }
}

/// The text behind a quotation mark or the end of a tag, up to where it ends.
Chunk AnyValue(Random& random, const std::string& xml) noexcept {
    if (xml.empty())
        return {0, 0};
    const std::size_t opening = xml.find_first_of("\">", random.Below(xml.size()));
    if (opening == std::string::npos)
        return {0, 0};
    const std::size_t start = opening + 1;
    const std::size_t end = xml.find_first_of("\"<", start);
    return end == std::string::npos ? Chunk{0, 0} : Chunk{start, end - start};
}

/// A value as it may stand between tags and in quotation marks.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
            case '<':
                escaped += "&lt;";
                break;
            case '&':
                escaped += "&amp;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                // Others that are not allowed would make most of the files unreadable: other changes do that.
                if (static_cast<unsigned char>(character) >= ' ' &&
                    static_cast<unsigned char>(character) < 0x7F)
                    escaped += character;
        }
    }
    return escaped;
}

void ChangeContent(Random& random, std::string& xml) {
    switch (random.Below(6)) {
        case 0: {
            const Chunk line = AnyLine(random, xml);
            xml.erase(line.start, line.length);
            break;
        }
        case 1:
            Double(xml, AnyLine(random, xml));
            break;
        case 2: {
            const Chunk line = AnyLine(random, xml);
            Swap(xml, line, AnyLine(random, xml));
            break;
        }
        default: {
            const Chunk value = AnyValue(random, xml);
            std::string text = Escaped(Token(random));
            if (random.OneIn(8))
                text += std::string(random.Below(300), 'x') + "&#xE4;&#x8868;";
            xml.replace(value.start, value.length, text);
        }
    }
}

/// Byte by byte: what is beyond ASCII becomes something else.
std::string Wide(std::string_view text, bool bigEndian) {
    std::string wide(bigEndian ? "\xFE\xFF" : "\xFF\xFE");
    for (const char character : text) {
        wide += bigEndian ? '\0' : character;
        wide += bigEndian ? character : '\0';
    }
    return wide;
}

void ChangeEncoding(Random& random, std::string& xml) {
    switch (random.Below(4)) {
        case 0:
            xml = Wide(xml, random.OneIn(2));
            break;
        case 1:
            xml = Wide(xml, random.OneIn(2)).substr(2);
            break;
        case 2:
            xml.insert(0, random.OneIn(2) ? "\xEF\xBB\xBF" : "\xFF\xFE");
            break;
        case 3: {
            const std::size_t named = xml.find("UTF-8");
            if (named != std::string::npos)
                xml.replace(named, 5, random.Pick(encodings));
            break;
        }
    }
}

void Nest(Random& random, std::string& xml) {
    const std::size_t levels = random.OneIn(10) ? 20'000 : 50 + random.Below(400);
    const std::size_t at = xml.find('<', AnyChunk(random, xml).start);
    std::string opened;
    std::string closed;
    for (std::size_t level = 0; level < levels; ++level) {
        opened += "<a>";
        closed += "</a>";
    }
    xml.insert(std::min(at, xml.size()), random.OneIn(3) ? opened : opened + "deep" + closed);
}

void PutHugeText(Random& random, std::string& bytes) {
    const std::size_t length = random.OneIn(10) ? 2'000'000 : 10'000 + random.Below(90'000);
    bytes.insert(AnyChunk(random, bytes).start, length, random.Pick("x 7<&\xE4"sv));
}

}  // namespace

std::uint64_t Random::Next() noexcept {
    std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31);
}

Random RandomOf(std::uint64_t seed, std::string_view reader, std::uint64_t number) noexcept {
    Random random(seed);
    for (const char character : reader)
        random = Random(random.Next() ^ static_cast<unsigned char>(character));
    return Random(random.Next() ^ number);
}

std::string_view Token(Random& random) noexcept {
    return random.Pick(tokens);
}

std::string MutatedText(Random& random, const std::vector<std::string>& known) {
    switch (random.Below(4)) {
        case 0:
            return std::string(Token(random));
        case 1: {
            std::string bytes(random.Below(12), '\0');
            std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random.Next()); });
            return bytes;
        }
        case 2:
            if (!known.empty())
                return random.Pick(known);
            [[fallthrough]];
        default:
            return MutatedBytes(random, known.empty() ? std::string(Token(random)) : random.Pick(known));
    }
}

std::string MutatedBytes(Random& random, std::string bytes) {
    for (std::size_t changes = 1 + random.Below(random.OneIn(4) ? 8 : 2); changes > 0; --changes)
        ChangeBytes(random, bytes);
    if (random.OneIn(4'000))
        PutHugeText(random, bytes);
    return bytes;
}

std::string MutatedXml(Random& random, std::string xml) {
    if (random.OneIn(2)) {
        for (std::size_t changes = 1 + random.Below(6); changes > 0; --changes)
            ChangeContent(random, xml);
        return xml;
    }
    if (random.OneIn(10))
        ChangeEncoding(random, xml);
    if (random.OneIn(500))
        Nest(random, xml);
    return MutatedBytes(random, std::move(xml));
}

std::string MutatedRows(Random& random, const std::string& xml) {
    if (random.OneIn(20))
        return MutatedXml(random, xml);
    std::vector<std::string_view> lines;
    for (std::size_t at = 0; at < xml.size();) {
        const std::size_t end = std::min(xml.find('\n', at), xml.size() - 1) + 1;
        lines.emplace_back(xml.data() + at, end - at);
        at = end;
    }
    constexpr std::size_t head = 2;
    constexpr std::size_t kept = 12;
    const std::size_t start =
        lines.size() > head + kept + 1 ? random.Below(lines.size() - kept - 1 - head) : 0;
    std::string shortened;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i < head || i + 1 == lines.size() || (i >= head + start && i < head + start + kept))
            shortened += lines[i];
    }
    return MutatedXml(random, std::move(shortened));
}

}  // namespace nux
