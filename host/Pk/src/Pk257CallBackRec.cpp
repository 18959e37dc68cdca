#include "Pk/Pk257CallBackRec.hpp"

#include <cstring>

namespace Pk {

namespace {

template <typename Field>
Field ReadField (const std::vector<std::byte>& block, std::size_t offset)
{
    Field field = 0;
    if (offset + sizeof (Field) <= block.size ()) std::memcpy (&field, block.data () + offset, sizeof (Field));
    return field;
}

template <typename Field>
void WriteField (void* buffer, std::size_t bufferSize, std::size_t offset, Field field)
{
    if (offset + sizeof (Field) <= bufferSize) std::memcpy (static_cast<std::byte*> (buffer) + offset, &field, sizeof (Field));
}

}   // namespace

std::vector<std::byte> RequestDescription (PickerCallBack callBack, Pk257CallBackRec& record)
{
    if (callBack == nullptr) return {};
    record.message = Pk257CallBackRec::DescribeMessage;
    record.entry = Pk257CallBackRec::NoEntry;
    record.phase = Pk257CallBackRec::SizePhase;
    record.resultSize = 0;
    record.result = nullptr;
    callBack (&record);
    const std::size_t size = record.resultSize;
    if (size == 0 || size > MaxDescriptionSize) return {};

    std::vector<std::byte> block (size);
    record.phase = Pk257CallBackRec::FillPhase;
    record.result = block.data ();
    callBack (&record);
    record.result = nullptr;
    // The buffer's size is the caller's, whatever the callback wrote into the field.
    record.resultSize = size;
    return block;
}

AttributeDescription AttributeDescription::Read (const std::vector<std::byte>& block)
{
    return AttributeDescription (ReadField<std::int32_t> (block, PartCountOffset), ReadField<std::int16_t> (block, FillWordOffset),
                                 ReadField<std::int16_t> (block, SurfaceWordOffset));
}

void AttributeDescription::Answer (Pk257CallBackRec& record) const
{
    if (record.phase == Pk257CallBackRec::SizePhase) {
        record.resultSize = Size;
        return;
    }
    if (record.phase != Pk257CallBackRec::FillPhase || record.result == nullptr) return;
    WriteField (record.result, record.resultSize, PartCountOffset, partCount);
    WriteField (record.result, record.resultSize, FillWordOffset, fillWord);
    WriteField (record.result, record.resultSize, SurfaceWordOffset, surfaceWord);
}

}   // namespace Pk
