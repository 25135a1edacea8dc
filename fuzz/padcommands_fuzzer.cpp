// What a program tells a virtual pad over its socket. The first byte says in which pieces the rest arrives.
#include "padcommands.h"
#include "target.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using virtualpad::PadCommand;
    fuzz::Bytes bytes(data, size);
    const int piece = bytes.byte();
    virtualpad::CommandReader reader;
    while (!bytes.atEnd()) {
        reader.append(bytes.take(std::max(piece, 1)));
        while (const auto command = reader.next()) {
            if (command->kind == PadCommand::Kind::Open)
                reader.allowPictures();
            KV_PROMISE(command->kind == PadCommand::Kind::Picture || command->picture.isNull());
        }
        if (reader.isTooLong()) {
            KV_PROMISE(!reader.next());
            break;
        }
    }
    return 0;
}
