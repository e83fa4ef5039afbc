#include "ZORCrypto/detail/KeySet.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Primitives.h"
#include "ZORCrypto/detail/Random.h"
#include "ZORCrypto/detail/Text.h"

#include <algorithm>

namespace mrl::detail {

namespace {

constexpr std::string_view c_firstLine = "mrl key store 1";
constexpr std::string_view c_anyFirstLine = "mrl key store ";
constexpr std::size_t c_lineSize = 4 + 16 + 1 + 20 + 1 + 64 + 1; // "key ID TIME KEY\n"

std::string idOf(const Key& key) {
    std::string id(c_keyIdSize, '\0');
    deriveBytes(key, "mrl/1/id", reinterpret_cast<unsigned char*>(id.data()), id.size());
    return id;
}

[[noreturn]] void damaged(std::size_t line, const char* what) {
    HBL_THROW(ZORError(eZORKeyStore, "line " + std::to_string(line) + ": " + what), "KeySet::parse");
}

MasterKey parseKey(std::string_view line, std::size_t number) {
    MasterKey master;
    const std::vector<std::string_view> words = split(line, ' ');
    if (words.size() != 4 || words[0] != "key")
        damaged(number, "expected \"key\", an id, a time and a key");
    if (!fromHex(words[1], master.id) || master.id.size() != c_keyIdSize)
        damaged(number, "the id is not 16 hexadecimal digits");
    if (!fromUtcText(words[2], master.created))
        damaged(number, "the time is not as in 2026-11-21T06:00:00Z");
    SecretText bytes(master.key.size());
    if (!fromHex(words[3], bytes.text()) || bytes.text().size() != master.key.size())
        damaged(number, "the key is not 64 hexadecimal digits");
    std::copy(bytes.text().begin(), bytes.text().end(), master.key.data());
    if (!equalInConstantTime(idOf(master.key), master.id))
        damaged(number, "the id is not that of the key");
    return master;
}

} // namespace

KeySet KeySet::create(std::int64_t now) {
    KeySet keys;
    keys.addNewKey(now);
    return keys;
}

void KeySet::addNewKey(std::int64_t now) {
    MasterKey master;
    if (!fillRandom(master.key.data(), master.key.size()))
        HBL_THROW(ZORError(eZORSystem, "the system gives no random bytes"), "KeySet::addNewKey");
    master.created = now;
    master.id = idOf(master.key);
    m_keys.push_back(std::move(master));
}

KeySet KeySet::parse(std::string_view text) {
    KeySet keys;
    const std::string_view whole = text;
    std::size_t number = 0;
    const auto nextLine = [&] {
        ++number;
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos)
            damaged(number, "the file ends before its sum");
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        return line;
    };
    const std::string_view first = whole.substr(0, whole.find('\n'));
    if (first != c_firstLine && first.starts_with(c_anyFirstLine))
        HBL_THROW(ZORError(eZORUnknownVersion, "line 1: version \"" +
                                                   std::string(first.substr(c_anyFirstLine.size(), 20)) +
                                                   "\" is not known, this program knows 1"),
                  "KeySet::parse");
    if (first != c_firstLine)
        damaged(1, "expected \"mrl key store 1\"");
    nextLine();
    std::string_view line = nextLine();
    for (; line.starts_with("key "); line = nextLine())
        keys.m_keys.push_back(parseKey(line, number));
    const std::string_view covered = whole.substr(0, whole.size() - text.size() - line.size() - 1);
    std::string sum;
    if (!line.starts_with("sum ") || !fromHex(line.substr(4), sum))
        damaged(number, "expected \"key\" or \"sum\"");
    if (!equalInConstantTime(sum, sha256(covered)))
        damaged(number, "the sum is not that of the lines before");
    if (!text.empty())
        damaged(number + 1, "expected nothing behind the sum");
    if (keys.m_keys.empty())
        damaged(number, "there is no key");
    return keys;
}

SecretText KeySet::format() const {
    SecretText file(c_firstLine.size() + 1 + m_keys.size() * c_lineSize + 69);
    std::string& text = file.text();
    text.append(c_firstLine) += '\n';
    for (const MasterKey& master : m_keys) {
        const SecretText key(toHex(master.key.view()));
        text.append("key ").append(toHex(master.id)) += ' ';
        text.append(toUtcText(master.created)).append(" ").append(key.text()) += '\n';
    }
    const std::string sum = toHex(sha256(text));
    text.append("sum ").append(sum) += '\n';
    return file;
}

const MasterKey* KeySet::find(std::string_view id) const noexcept {
    const auto found = std::ranges::find(m_keys, id, &MasterKey::id);
    return found == m_keys.end() ? nullptr : &*found;
}

} // namespace mrl::detail
