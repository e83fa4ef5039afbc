#include "traffic/Difference.h"

#include "traffic/CanonicalText.h"
#include "traffic/Envelope.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <ostream>
#include <span>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

using Lines = std::span<const std::string>;

/// Above this many comparisons a run is told as changed as a whole.
constexpr std::size_t MOST_COMPARISONS = 16'000'000;

/// How long the longest common sequence of the rests of both is, from each pair of places on.
class CommonLengths {
public:
    CommonLengths(Lines before, Lines now)
        : m_width(now.size() + 1)
        , m_lengths((before.size() + 1) * m_width) {
        for (std::size_t i = before.size(); i-- > 0;)
            for (std::size_t j = now.size(); j-- > 0;)
                m_lengths[i * m_width + j] =
                    before[i] == now[j] ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
    }
    std::uint32_t at(std::size_t i, std::size_t j) const { return m_lengths[i * m_width + j]; }

private:
    std::size_t m_width;
    std::vector<std::uint32_t> m_lengths;
};

std::string problemOf(const Envelope& envelope) {
    switch (envelope.kind) {
    case Envelope::absent: return "there is none";
    case Envelope::empty: return "it is empty";
    case Envelope::encrypted: return "it is encrypted";
    case Envelope::malformed: return "it is not well-formed: " + envelope.problem;
    case Envelope::foreign:
    case Envelope::sound: return {};
    }
    return {};
}

class Comparison {
public:
    Comparison(const PathRules& volatilePlaces, Compared compared)
        : m_volatile(volatilePlaces)
        , m_compared(compared) {}

    /// The differences of one call, empty for none.
    std::vector<std::string> call(const RecordedCall* before, const RecordedCall* now) {
        m_lines.clear();
        if (now == nullptr) {
            m_lines.emplace_back("the call is not made any more");
        } else if (before == nullptr) {
            m_lines.emplace_back("the call is new");
        } else if (before->requestMessage != now->requestMessage) {
            m_lines.push_back("another operation: " + before->requestMessage + " before, " +
                              now->requestMessage + " now");
        } else {
            envelope("request", before->request, now->request);
            attachments("request attachment", before->requestAttachments, now->requestAttachments);
            if (m_compared == Compared::all) {
                envelope("reply", before->reply, now->reply);
                attachments("reply attachment", before->replyAttachments, now->replyAttachments);
            }
        }
        return m_lines;
    }

private:
    void envelope(const std::string& what, const fs::path& before, const fs::path& now) {
        const Envelope first = Envelope::read(before);
        const Envelope second = Envelope::read(now);
        const std::string problem = problemOf(first);
        if (problem != problemOf(second) || first.kind != second.kind) {
            m_lines.push_back(what + ": before, " + (problem.empty() ? "it is sound" : problem) + "; now, " +
                              (problemOf(second).empty() ? "it is sound" : problemOf(second)));
            return;
        }
        if (!problem.empty()) {
            // The cipher text of the same request differs each time.
            if (first.kind == Envelope::malformed && bytesOf(before) != bytesOf(now))
                m_lines.push_back(what + ": the bytes differ");
            return;
        }
        const auto changes = differingLines(canonicalLines(first.document, &m_volatile),
                                            canonicalLines(second.document, &m_volatile));
        if (!changes.empty()) {
            m_lines.push_back(what + ":");
            for (const std::string& line : changes)
                m_lines.push_back("  " + line);
        }
    }

    void attachments(const std::string& what, const std::vector<fs::path>& before,
                     const std::vector<fs::path>& now) {
        if (before.size() != now.size()) {
            m_lines.push_back(std::to_string(before.size()) + " " + what + "s before, " +
                              std::to_string(now.size()) + " now");
            return;
        }
        for (std::size_t i = 0; i < before.size(); ++i) {
            const std::string first = bytesOf(before[i]);
            const std::string second = bytesOf(now[i]);
            if (first == second)
                continue;
            const auto at = std::mismatch(first.begin(), first.end(), second.begin(), second.end()).first;
            m_lines.push_back(what + " " + std::to_string(i + 1) + ": " + std::to_string(first.size()) +
                              " bytes before, " + std::to_string(second.size()) +
                              " now, the same up to byte " + std::to_string(at - first.begin()));
        }
    }

    const PathRules& m_volatile;
    Compared m_compared;
    std::vector<std::string> m_lines;
};

} // namespace

std::vector<std::string> differingLines(const std::vector<std::string>& before,
                                        const std::vector<std::string>& now) {
    const auto [firstBefore, firstNow] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto same = static_cast<std::size_t>(firstBefore - before.begin());
    std::size_t tail = 0;
    while (tail + same < std::min(before.size(), now.size()) &&
           before[before.size() - 1 - tail] == now[now.size() - 1 - tail])
        ++tail;
    const Lines left = Lines(before).subspan(same, before.size() - same - tail);
    const Lines right = Lines(now).subspan(same, now.size() - same - tail);
    std::vector<std::string> changes;
    if (left.empty() && right.empty())
        return changes;
    bool hasContext = same == 0;
    std::string context = same == 0 ? "" : "  " + before[same - 1];
    const auto add = [&](char sign, const std::string& line) {
        if (!hasContext)
            changes.push_back(context);
        hasContext = true;
        changes.push_back(sign + (" " + line));
    };
    if ((left.size() + 1) * (right.size() + 1) > MOST_COMPARISONS) {
        for (const std::string& line : left)
            add('-', line);
        for (const std::string& line : right)
            add('+', line);
        return changes;
    }
    const CommonLengths common(left, right);
    for (std::size_t i = 0, j = 0; i < left.size() || j < right.size();) {
        if (i < left.size() && j < right.size() && left[i] == right[j]) {
            context = "  " + left[i];
            hasContext = false;
            ++i;
            ++j;
        } else if (i < left.size() && (j == right.size() || common.at(i + 1, j) >= common.at(i, j + 1))) {
            add('-', left[i++]);
        } else {
            add('+', right[j++]);
        }
    }
    return changes;
}

std::size_t printDifferences(const Recording& before, const Recording& now, const PathRules& volatilePlaces,
                             Compared compared, std::ostream& out) {
    std::map<std::string, std::pair<const RecordedCall*, const RecordedCall*>> calls;
    for (const RecordedCall& call : before.calls)
        calls[call.id()].first = &call;
    for (const RecordedCall& call : now.calls)
        calls[call.id()].second = &call;
    Comparison comparison(volatilePlaces, compared);
    std::size_t differing = 0;
    for (const auto& [id, pair] : calls) {
        const std::vector<std::string> lines = comparison.call(pair.first, pair.second);
        if (lines.empty())
            continue;
        ++differing;
        out << printable(id + " " + (pair.first != nullptr ? pair.first : pair.second)->requestMessage)
            << '\n';
        for (const std::string& line : lines)
            out << "  " << printable(line) << '\n';
    }
    return differing;
}

} // namespace mrl::tool
