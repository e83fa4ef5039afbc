#include "store/Selection.h"

#include "store/PropertyRules.h"
#include "store/StoreError.h"

#include <algorithm>
#include <iterator>

namespace mrl::bus {

namespace {

void addCondition(const SearchPath::Predicate& predicate, Selection& to) {
    const PropertyRule* rule = findPropertyRule(predicate.property);
    if (rule == nullptr) {
        to.where += " AND EXISTS (SELECT 1 FROM property q WHERE q.object = o.id AND q.name = ? AND "
                    "CASE q.kind WHEN 'boolean' THEN iif(q.value, 'true', 'false') "
                    "ELSE CAST(q.value AS TEXT) END = ?)";
        to.parameters.push_back(predicate.property);
        to.parameters.push_back(predicate.value);
        return;
    }
    if (rule->column.empty())
        throw StoreError(
            StoreErrorCode::badSearchPath,
            "The property " + predicate.property +
                " cannot stand in a condition of a search path; test name, objectClass or another "
                "simple property.");
    const std::string column(rule->column);
    if (rule->kind == PropertyRule::Kind::truth)
        to.where += " AND iif(" + column + ", 'true', 'false') = ?";
    else if (rule->kind == PropertyRule::Kind::number)
        to.where += " AND CAST(" + column + " AS TEXT) = ?";
    else
        to.where += " AND " + column + " = ?";
    to.parameters.push_back(predicate.value);
}

/// One step from the set `from` (a SELECT of id and path); null when it starts at the object `start`.
void addStep(const SearchPath::Step& step, Selection& to) {
    // '0' is the character after '/': the range holds exactly the paths that go on below p.
    to.where = step.axis == SearchPath::Axis::child ? "o.parent = p.id"
                                                    : "o.path > p.path || '/' AND o.path < p.path || '0'";
    if (!step.objectClass.empty()) {
        to.where += " AND o.class = ?";
        to.parameters.push_back(step.objectClass);
    }
    for (const auto& predicate : step.predicates)
        addCondition(predicate, to);
}

Selection branchSelection(const SearchPath::Branch& branch) {
    const FixedPart fixed = FixedPart::of(branch);
    Selection result{"object o", "o.path = ?", {fixed.path}, false};
    bool single = true;
    for (std::size_t i = fixed.steps; i < branch.size(); ++i) {
        // The sets before stay sets: without DISTINCT, //a//b//c would multiply the ways to each object.
        // CROSS JOIN keeps SQLite from starting at the far end.
        result.from = std::string("(SELECT ") + (result.distinct ? "DISTINCT " : "") + "o.id, o.path FROM " +
                      result.from + " WHERE " + result.where + ") p CROSS JOIN object o";
        addStep(branch[i], result);
        result.distinct = !single && branch[i].axis == SearchPath::Axis::descendant;
        single = false;
    }
    return result;
}

} // namespace

FixedPart FixedPart::of(const SearchPath::Branch& branch) {
    FixedPart result;
    for (const auto& step : branch) {
        if (step.axis != SearchPath::Axis::child || step.objectClass.empty())
            break;
        const bool named = step.predicates.size() == 1 && (step.predicates[0].property == "name" ||
                                                           step.predicates[0].property == "defaultName");
        // The root's own children are one of a class, and are called by the class alone.
        if (result.steps == 0 && step.predicates.empty())
            result.path += "/" + step.objectClass;
        else if (result.steps != 0 && named)
            result.path += "/" + SearchPath::step(step.objectClass, step.predicates[0].value);
        else
            break;
        ++result.steps;
    }
    return result;
}

std::optional<std::string> exactPath(const SearchPath& path) {
    const FixedPart fixed = FixedPart::of(path.branches.front());
    const bool exact = path.branches.size() == 1 && fixed.steps == path.branches.front().size();
    return exact ? std::optional(fixed.path) : std::nullopt;
}

Selection Selection::of(const SearchPath& path) {
    if (path.branches.size() == 1)
        return branchSelection(path.branches.front());
    Selection result;
    for (const auto& branch : path.branches) {
        Selection part = branchSelection(branch);
        result.where += (result.where.empty() ? "" : " UNION ") + std::string("SELECT o.id FROM ") +
                        part.from + " WHERE " + part.where;
        std::ranges::move(part.parameters, std::back_inserter(result.parameters));
    }
    result.from = "object o";
    result.where = "o.id IN (" + result.where + ")";
    return result;
}

} // namespace mrl::bus
