// Feeds arbitrary bytes, as another local process could send them, to the running
// copy's request reader, in pieces of every size. Whatever the pieces, a request the
// whole bytes make is made by the pieces too; the pieces may decide earlier, on a
// complete request followed by more bytes, but never on one the bytes do not begin
// with. No hand-over is longer than the limit, and the path taken from a hand-over is
// a part of its command line.
#include "FuzzCheck.h"
#include "shell/core/HandOver.h"

#include <cstdint>

using namespace tessaro;

namespace {

handover::RequestReader::State readInPieces(const QByteArray &bytes, qsizetype piece,
                                            QByteArray &payload)
{
    handover::RequestReader reader;
    for (qsizetype at = 0; at < bytes.size(); at += piece)
        reader.feed(bytes.mid(at, piece));
    if (bytes.isEmpty())
        reader.feed(bytes);
    payload = reader.payload();
    return reader.state();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    // The first byte chooses the size of the pieces; the rest is what arrives.
    const qsizetype piece = 1 + data[0] % 16;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, qsizetype(size) - 1);

    QByteArray whole;
    QByteArray pieces;
    using State = handover::RequestReader::State;
    const State state = readInPieces(bytes, bytes.size() + 1, whole);
    const State early = readInPieces(bytes, piece, pieces);
    if (state != State::Invalid) {
        fuzzCheck(early == state);
        fuzzCheck(whole == pieces);
    } else if (early != State::Invalid && early != State::Incomplete) {
        // Decided on a complete request that more bytes follow: some beginning of the
        // bytes is exactly that request.
        bool found = false;
        for (qsizetype length = 1; length < bytes.size() && !found; ++length) {
            QByteArray prefixPayload;
            found = readInPieces(bytes.left(length), length + 1, prefixPayload) == early &&
                    prefixPayload == pieces;
        }
        fuzzCheck(found);
    }
    if (state == State::HandOver) {
        fuzzCheck(whole.size() <= handover::kMaxBytes);
        const QString commandLine = handover::commandLineFromBytes(whole);
        if (const auto path = handover::commandLinePath(commandLine))
            fuzzCheck(commandLine.contains(*path));
    }
    return 0;
}
