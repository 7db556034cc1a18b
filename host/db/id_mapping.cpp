#include "host/db/id_mapping.h"

void AcDbIdMapping::assign(const AcDbIdPair& pair)
{
    const auto [place, added] = places_.try_emplace(pair.key(), pairs_.size());
    if (added)
        pairs_.push_back(pair);
    else
        pairs_[place->second] = pair;
}

bool AcDbIdMapping::compute(AcDbIdPair& pair) const
{
    const auto place = places_.find(pair.key());
    if (place == places_.end())
        return false;
    pair = pairs_[place->second];
    return true;
}

AcDbObjectId AcDbIdMapping::valueOf(AcDbObjectId key) const
{
    const auto place = places_.find(key);
    return place == places_.end() ? AcDbObjectId() : pairs_[place->second].value();
}
