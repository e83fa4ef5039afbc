#include "serialization/detail/ClassPlan.h"

#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"

#include "HBLCore/HBLUtCrc32.h"

#include <atomic>
#include <memory>

namespace mrl::detail {

namespace {

MemberPlan planOf(const char* name, MRLSchemaTypeI::ObjectType type) {
    const SchemaTypeRow* const row = findSchemaType(type);
    const bool isGenerated = MRLSchemaTypesFactory::isGeneratedType(type) != 0;
    std::string open = std::string("<bus:") + name + " xsi:type=\"";
    if (!isGenerated && row != nullptr) {
        open.append(row->xsiName) += '"';
    }
    return {name,
            type,
            row != nullptr && row->elementXsiName != nullptr,
            isGenerated,
            std::move(open),
            std::string("</bus:") + name + ">\n"};
}

} // namespace

ClassPlan::ClassPlan(const SchemaTypeRow& row) {
    const std::unique_ptr<MRLSchemaTypeI> sample(row.create());
    std::vector<const char*> names;
    sample->getChildObjectNames(names, true);
    m_members.reserve(names.size());
    for (const char* const name : names) {
        m_members.push_back(planOf(name, sample->getChildType(name)));
        if (*name == '\0') {
            m_hasOwnText = MRLSchemaTypesFactory::isString(m_members.back().type) != 0;
        }
    }
    if (m_members.size() > mostMembers) {
        return;
    }
    for (std::size_t member = 0; member < m_members.size(); ++member) {
        const std::uint32_t key = HBLUtCrc32::crc32(m_members[member].name, 0u);
        std::size_t place = key % m_places.size();
        while (m_places[place].member != none) {
            place = (place + 1) % m_places.size();
        }
        m_places[place] = {key, static_cast<std::uint16_t>(member)};
    }
}

const ClassPlan* ClassPlan::of(const SchemaTypeRow& row) {
    if (row.readMembers == nullptr) {
        return nullptr;
    }
    // One place for each row, never given back: plans may be asked for while the process ends.
    static auto* const s_plans = new std::atomic<const ClassPlan*>[g_schemaTypes.count] {};
    std::atomic<const ClassPlan*>& place = s_plans[&row - g_schemaTypes.rows];
    const ClassPlan* plan = place.load(std::memory_order_acquire);
    if (plan == nullptr) {
        std::unique_ptr<const ClassPlan> made(new ClassPlan(row));
        if (place.compare_exchange_strong(plan, made.get(), std::memory_order_acq_rel)) {
            plan = made.release();
        } // else another thread was first, and its plan is the same
    }
    return plan->members().size() <= mostMembers ? plan : nullptr;
}

} // namespace mrl::detail
