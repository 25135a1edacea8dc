"""Writes small documents byte by byte, for what no program writes by itself."""


def document(name, objects, root=1, header=b"%PDF-1.7\n%\xe2\xe3\xcf\xd3\n", hybrid=False):
    """objects: number -> body as bytes; the cross-reference table is made here."""
    out = bytearray(header)
    places = {}
    for number, body in objects.items():
        places[number] = len(out)
        out += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    extra = b""
    if hybrid:  # a cross-reference stream besides the table, which says the same
        number = max(objects) + 1
        entries = b"".join(b"\x01" + places[n].to_bytes(4, "big") + b"\x00" for n in objects)
        place = len(out)
        out += b"%d 0 obj\n<< /Type /XRef /W [1 4 1] /Index [%d %d] /Size %d /Root %d 0 R /Length %d >>\nstream\n" % (
            number, min(objects), len(objects), number, root, len(entries)) + entries + b"\nendstream\nendobj\n"
        extra = b" /XRefStm %d" % place
    start = len(out)
    out += b"xref\n0 %d\n0000000000 65535 f \n" % (max(objects) + 1)
    for number in range(1, max(objects) + 1):
        out += b"%010d 00000 n \n" % places[number]
    out += b"trailer\n<< /Size %d /Root %d 0 R%s >>\nstartxref\n%d\n%%%%EOF\n" % (max(objects) + 1, root, extra, start)
    with open(name, "wb") as file:
        file.write(out)


def stream(data):
    return b"<< /Length %d >>\nstream\n%s\nendstream" % (len(data), data)


def text(words):
    return stream(b"BT /F1 14 Tf 40 60 Td (%s) Tj ET" % words)


CATALOGUE = b"<< /Type /Catalog /Pages 2 0 R >>"
FONT = b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"
RESOURCES = b"<< /Font << /F1 5 0 R >> >>"

# Two pages that share resources, boxes and rotation of their parent; the content leaves a state and a scale open.
document("written-two-pages.pdf", {
    1: CATALOGUE,
    2: b"<< /Type /Pages /Kids [3 0 R 4 0 R] /Count 2 /MediaBox [0 0 300 400] /Resources " + RESOURCES + b" >>",
    3: b"<< /Type /Page /Parent 2 0 R /Contents 6 0 R >>",
    4: b"<< /Type /Page /Parent 2 0 R /Contents [7 0 R 8 0 R] >>",
    5: FONT,
    6: stream(b"q 0.5 0 0 0.5 100 100 cm BT /F1 14 Tf 40 60 Td (first page) Tj ET"),
    7: text(b"second page"),
    8: stream(b"Q Q 2 0 0 2 0 0 cm"),
})

# Every rotation, with boxes of their own that begin elsewhere, and a user unit. Each shows 200 by 100 mm.
MM = 72 / 25.4
for rotation in (0, 90, 180, 270):
    width, height = (200, 100) if rotation % 180 == 0 else (100, 200)
    unit = 2 if rotation == 180 else 1
    box = [50, -30, 50 + width * MM / unit, -30 + height * MM / unit]
    media = [box[0] - 20, box[1] - 10, box[2] + 30, box[3] + 40]
    document("written-rotated-%d.pdf" % rotation, {
        1: CATALOGUE,
        2: b"<< /Type /Pages /Kids [3 0 R] /Count 1 /Rotate %d >>" % (rotation if rotation != 270 else -90),
        3: ("<< /Type /Page /Parent 2 0 R /Contents 4 0 R /MediaBox [%s] /CropBox [%s]%s /Resources "
            % (" ".join("%.4f" % n for n in media), " ".join("%.4f" % n for n in box),
               " /UserUnit 2" if unit == 2 else "")).encode() + RESOURCES + b" >>",
        4: stream(b"BT /F1 14 Tf 1 0 0 1 80 20 Tm (rotated) Tj ET"),
        5: FONT,
    })

# A form: two empty signature fields, one of them with a lock, a text, a button that is on.
FORM = {
    1: b"<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [6 0 R 7 0 R 8 0 R 9 0 R] /DA (/Helv 12 Tf 0 g)"
       b" /DR << /Font << /Helv 5 0 R >> >> >> >>",
    2: b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
    3: b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 400 500] /Contents 4 0 R /Annots [6 0 R 7 0 R 8 0 R 9 0 R]"
       b" /Resources " + RESOURCES + b" >>",
    4: text(b"a form"),
    5: FONT,
    6: b"<< /Type /Annot /Subtype /Widget /FT /Sig /T (customer) /Rect [50 100 200 160] /P 3 0 R >>",
    7: b"<< /Type /Annot /Subtype /Widget /FT /Sig /T (driver) /Rect [220 100 370 160] /P 3 0 R"
       b" /Lock << /Type /SigFieldLock /Action /Include /Fields [(remark)] >> >>",
    8: b"<< /Type /Annot /Subtype /Widget /FT /Tx /T (remark) /V (left at the door) /DA (/Helv 12 Tf 0 g)"
       b" /Rect [50 300 300 330] /P 3 0 R /AP << /N 10 0 R >> >>",
    9: b"<< /Type /Annot /Subtype /Widget /FT /Btn /T (paid) /V /Yes /AS /Yes /Rect [50 250 70 270] /P 3 0 R"
       b" /AP << /N << /Yes 11 0 R /Off 12 0 R >> >> >>",
    10: b"<< /Type /XObject /Subtype /Form /BBox [0 0 250 30] /Resources << /Font << /Helv 5 0 R >> >> /Length 52 >>\n"
        b"stream\nBT /Helv 12 Tf 4 10 Td (left at the door) Tj ET     \nendstream",
    11: b"<< /Type /XObject /Subtype /Form /BBox [0 0 20 20] /Length 14 >>\nstream\n2 2 16 16 re f\nendstream",
    12: b"<< /Type /XObject /Subtype /Form /BBox [0 0 20 20] /Length 0 >>\nstream\n\nendstream",
}
document("written-form.pdf", FORM)

# The cross-references in two forms at once; a table whose places are all wrong.
document("written-hybrid.pdf", {
    1: CATALOGUE,
    2: b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
    3: b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 300 300] /Contents 4 0 R /Resources " + RESOURCES + b" >>",
    4: text(b"hybrid"),
    5: FONT,
}, hybrid=True)
with open("written-hybrid.pdf", "rb") as file:
    whole = file.read()
with open("written-damaged.pdf", "wb") as file:
    file.write(whole.replace(b"%PDF-1.7\n", b"%PDF-1.7\n%moved by a line\n"))
