#include "media/replies.h"

#include "frame/values/leading_number.h"
#include "media/rounded.h"

namespace vorla::media {

std::int32_t beginningInt32(TextView reply) { return roundedToInt32(leadingNumber(reply)); }
std::int16_t beginningInt16(TextView reply) { return roundedTo<std::int16_t>(leadingNumber(reply)); }

emciStatus statusIn(TextView reply) {
    struct Row {
        TextView word;
        emciStatus status;
    };
    constexpr Row rows[] = {
        {L"playing", emciStatus::mcistPlaying},     {L"paused", emciStatus::mcistPaused},
        {L"stopped", emciStatus::mcistStopped},     {L"not ready", emciStatus::mcistNotReady},
        {L"recording", emciStatus::mcistRecording}, {L"parked", emciStatus::mcistParked},
        {L"open", emciStatus::mcistOpen},           {L"seeking", emciStatus::mcistSeeking}};
    for (const Row& row : rows)
        if (row.word == reply) return row.status;
    return emciStatus::mcistPlaying;
}

bool saysPlaying(TextView reply) { return reply.starts_with(L"play"); }

}  // namespace vorla::media
