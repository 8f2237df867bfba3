#include "prepare/plain/DrawAnyText.h"

#include "prepare/plain/DrawMText.h"
#include "prepare/plain/DrawText.h"
#include "prepare/plain/TextWords.h"

namespace prepare {

namespace {

std::string_view TypeNameOf(EntityType type)
{
    switch (type) {
    case EntityType::Attrib:
        return "ATTRIB";
    case EntityType::AttDef:
        return "ATTDEF";
    default:
        return "TEXT";
    }
}

} // namespace

bool DrawAnyText(const Entity& entity, const Placement& placement, const PartStyler& styleOf)
{
    switch (entity.type) {
    case EntityType::Text:
    case EntityType::Attrib:
    case EntityType::AttDef: {
        const Text& text = static_cast<const Text&>(entity);
        if (IsOfSeveralLines(text))
            DrawMTextOf(text, placement, styleOf, TypeNameOf(entity.type));
        else
            DrawText(text, placement, TypeNameOf(entity.type));
        return true;
    }
    case EntityType::MText:
        DrawMText(static_cast<const MText&>(entity), placement, styleOf, "MTEXT");
        return true;
    default:
        return false;
    }
}

} // namespace prepare
