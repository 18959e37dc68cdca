#include "TxAC/SetupData.hpp"

namespace TxAC {

namespace {

const SetupData*& Installed ()
{
    static const SetupData* installed = &GetDefaultSetupData ();
    return installed;
}

}   // namespace

SetupData& GetDefaultSetupData ()
{
    static SetupData data;
    return data;
}

const SetupData* GetSetupData ()
{
    return Installed ();
}

const SetupData* SetSetupData (const SetupData* data)
{
    const SetupData* previous = Installed ();
    Installed () = data;
    return previous;
}

}   // namespace TxAC
