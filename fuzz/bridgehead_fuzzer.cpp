// The head of a request to the bridge, and who may come in.
#include "admission.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    bridge::RequestHead head;
    if (bridge::readHead(bytes, head) != bridge::HeadState::Complete)
        return 0;
    bridge::AdmissionRules rules;
    rules.port = 9001;
    rules.token = QByteArray(32, 'a');
    rules.origins = {"https://shop.example"};
    const bridge::Admission answer = bridge::admit(head, rules);
    KV_PROMISE(answer.kind != bridge::Admission::Page);
    if (answer.kind == bridge::Admission::Refused)
        return 0;
    // Nobody gets further without these words somewhere in the head.
    KV_PROMISE(
        bytes.toLower().contains("localhost:9001") || bytes.contains("127.0.0.1:9001") || bytes.contains("[::1]:9001"));
    if (answer.kind == bridge::Admission::Upgrade)
        KV_PROMISE(answer.hasToken ? bytes.toLower().contains("kvsign.token." + rules.token)
                                   : bytes.contains("https://shop.example"));
    return 0;
}
