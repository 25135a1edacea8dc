// A client's message to the bridge: what is taken holds what the protocol says.
#include "messagereader.h"
#include "target.h"

#include <QJsonDocument>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const bridge::ReadMessage message = bridge::readMessage(bytes);
    if (!message.request) {
        KV_PROMISE(*message.wrong != 0);
        return 0;
    }
    KV_PROMISE(message.request->id >= 1);
    for (const char *name : {"driver", "path", "origin", "token"})
        KV_PROMISE(!message.request->has(name));
    const QByteArray again = QJsonDocument(message.request->members).toJson();
    KV_PROMISE(bridge::readMessage(again).request.has_value());
    return 0;
}
