#include "formats/DeviceText.h"

#include "platform/NumberInput.h"
#include "platform/Text.h"

namespace kestrabel {

namespace {

constexpr std::size_t MaxFieldLength = 31;
constexpr std::size_t MaxProgramLength = 223;
constexpr std::string_view ProgramName = "Kestro";
constexpr std::string_view ProgramVersion = "1.917";

std::string TakeField(std::string_view& bytes, std::size_t nMaxLength)
{
    const std::size_t nComma = bytes.find(',');
    const std::string strField = ToUtf8(bytes.substr(0, nComma));
    bytes = nComma == std::string_view::npos ? std::string_view() : bytes.substr(nComma + 1);
    return std::string(CutText(strField, nMaxLength));
}

} // namespace

std::string_view CutText(std::string_view strUtf8, std::size_t nLength)
{
    if (strUtf8.size() <= nLength)
        return strUtf8;
    const auto IsContinuation = [&](std::size_t n) {
        return (static_cast<unsigned char>(strUtf8[n]) & 0xc0U) == 0x80U;
    };
    while (nLength > 0 && IsContinuation(nLength))
        --nLength;
    return strUtf8.substr(0, nLength);
}

void SetDeviceFields(std::string_view bytes, CSeries& series)
{
    bytes = bytes.substr(0, bytes.find('\0'));
    series.m_strIdentifier = TakeField(bytes, MaxFieldLength);
    series.m_strSerialNo = TakeField(bytes, MaxFieldLength);
    series.m_nLogRate = ReadInteger(TakeField(bytes, MaxFieldLength));
    series.m_strFirmware = TakeField(bytes, MaxFieldLength);
    series.m_strInfo = TakeField(bytes, MaxProgramLength);
}

std::string MakeDeviceText(const CSeries& series)
{
    std::string strText = " ";
    strText.append(series.m_strIdentifier).append(",");
    strText.append(series.m_strSerialNo).append(",");
    strText.append(std::to_string(series.m_nLogRate)).append(",");
    strText.append(series.m_strFirmware).append(",");
    strText.append(ProgramName).append(ProgramVersion);
    return strText;
}

} // namespace kestrabel
