<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>signdesk::BusyWork</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>signdesk::DeskActions</name>
    <message>
        <source>&amp;Open page...</source>
        <translation>Seite ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Choose the PDF or picture to be signed</source>
        <translation>Das PDF oder Bild wählen, das unterschrieben werden soll</translation>
    </message>
    <message>
        <source>&amp;Save signed page...</source>
        <translation>Unterschriebene Seite &amp;speichern...</translation>
    </message>
    <message>
        <source>Write the page with the signature on it, as PDF or PNG</source>
        <translation>Die Seite mit der Unterschrift darauf als PDF oder PNG schreiben</translation>
    </message>
    <message>
        <source>&amp;Export signature...</source>
        <translation>Unterschrift &amp;exportieren...</translation>
    </message>
    <message>
        <source>Write the signature alone, as PNG, SVG, PDF, JPEG or BMP</source>
        <translation>Nur die Unterschrift als PNG, SVG, PDF, JPEG oder BMP schreiben</translation>
    </message>
    <message>
        <source>Export &amp;fingerprint...</source>
        <translation>Fin&amp;gerabdruck exportieren...</translation>
    </message>
    <message>
        <source>Write the fingerprint alone, as PNG</source>
        <translation>Nur den Fingerabdruck als PNG schreiben</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Print the page with the signature on it</source>
        <translation>Die Seite mit der Unterschrift darauf drucken</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Das Fenster schließen</translation>
    </message>
    <message>
        <source>&amp;Start signing</source>
        <translation>&amp;Beginnen</translation>
    </message>
    <message>
        <source>Open the pad, so that the signer can write</source>
        <translation>Das Pad öffnen, damit unterschrieben werden kann</translation>
    </message>
    <message>
        <source>&amp;Confirm</source>
        <translation>B&amp;estätigen</translation>
    </message>
    <message>
        <source>Accept the signature as it is, as the signer&apos;s tap on the pad&apos;s confirm button does</source>
        <translation>Die Unterschrift annehmen, wie sie ist; so wirkt auch die Bestätigungstaste des Pads</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Empty the field, to be signed anew</source>
        <translation>Das Feld leeren, damit neu unterschrieben werden kann</translation>
    </message>
    <message>
        <source>&amp;Undo signature</source>
        <translation>Unterschrift zu&amp;rücknehmen</translation>
    </message>
    <message>
        <source>Take the last signature that is not saved from the document</source>
        <translation>Die letzte nicht gespeicherte Unterschrift wieder aus dem Dokument nehmen</translation>
    </message>
    <message>
        <source>&amp;Done, next customer</source>
        <translation>&amp;Fertig, nächster Kunde</translation>
    </message>
    <message>
        <source>End with this customer: show the document as it was opened</source>
        <translation>Mit diesem Kunden abschließen: das Dokument wieder so zeigen, wie es geöffnet wurde</translation>
    </message>
    <message>
        <source>Di&amp;gital signature...</source>
        <translation>Digitale &amp;Signatur...</translation>
    </message>
    <message>
        <source>Choose the certificate that signatures are made with</source>
        <translation>Das Zertifikat wählen, mit dem signiert wird</translation>
    </message>
    <message>
        <source>C&amp;heck digital signatures...</source>
        <translation>Digitale Signaturen &amp;prüfen...</translation>
    </message>
    <message>
        <source>Say what the document&apos;s digital signatures are worth</source>
        <translation>Sagen, was die digitalen Signaturen des Dokuments wert sind</translation>
    </message>
    <message>
        <source>C&amp;ancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Give up this signature and close the pad</source>
        <translation>Diese Unterschrift aufgeben und das Pad schließen</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Show the page larger</source>
        <translation>Die Seite größer zeigen</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Show the page smaller</source>
        <translation>Die Seite kleiner zeigen</translation>
    </message>
    <message>
        <source>&amp;Fit width</source>
        <translation>An &amp;Breite anpassen</translation>
    </message>
    <message>
        <source>Show the page as wide as the window</source>
        <translation>Die Seite so breit wie das Fenster zeigen</translation>
    </message>
    <message>
        <source>&amp;About Sign Desk</source>
        <translation>&amp;Über Sign Desk</translation>
    </message>
    <message>
        <source>What this program is</source>
        <translation>Was dieses Programm ist</translation>
    </message>
    <message>
        <source>About the pad &amp;library</source>
        <translation>Über die &amp;Bibliothek der Pads</translation>
    </message>
    <message>
        <source>The version of the signature pads&apos; library</source>
        <translation>Die Version der Bibliothek der Unterschriftenpads</translation>
    </message>
    <message>
        <source>Menu bar</source>
        <translation>Menüleiste</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Open &amp;again</source>
        <translation>E&amp;rneut öffnen</translation>
    </message>
    <message>
        <source>Open again</source>
        <translation>Erneut öffnen</translation>
    </message>
    <message>
        <source>&amp;Signature</source>
        <translation>&amp;Unterschrift</translation>
    </message>
    <message>
        <source>Vie&amp;w</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Keep this signature in the document, and let another one be written</source>
        <translation>Diese Unterschrift im Dokument behalten und eine weitere schreiben lassen</translation>
    </message>
    <message>
        <source>&amp;Next page</source>
        <translation>&amp;Nächste Seite</translation>
    </message>
    <message>
        <source>Show the next page; the signature&apos;s field stays</source>
        <translation>Die nächste Seite zeigen; das Feld der Unterschrift bleibt, wo es ist</translation>
    </message>
    <message>
        <source>&amp;Previous page</source>
        <translation>&amp;Vorherige Seite</translation>
    </message>
    <message>
        <source>Show the page before; the signature&apos;s field stays</source>
        <translation>Die Seite davor zeigen; das Feld der Unterschrift bleibt, wo es ist</translation>
    </message>
    <message>
        <source>&amp;Go to page</source>
        <translation>Gehe zu Se&amp;ite</translation>
    </message>
    <message>
        <source>Type the number of the page to be shown</source>
        <translation>Die Nummer der Seite eingeben, die gezeigt werden soll</translation>
    </message>
    <message>
        <source>&amp;Signature on this page</source>
        <translation>&amp;Unterschrift auf diese Seite</translation>
    </message>
    <message>
        <source>Move the signature&apos;s field to the page that is shown</source>
        <translation>Das Feld der Unterschrift auf die gezeigte Seite legen</translation>
    </message>
    <message>
        <source>Find &amp;text</source>
        <translation>&amp;Text suchen</translation>
    </message>
    <message>
        <source>Find a text on the pages</source>
        <translation>Einen Text auf den Seiten suchen</translation>
    </message>
    <message>
        <source>Find ne&amp;xt</source>
        <translation>&amp;Weitersuchen</translation>
    </message>
    <message>
        <source>Show the next place with the text</source>
        <translation>Die nächste Stelle mit dem Text zeigen</translation>
    </message>
    <message>
        <source>Find pre&amp;vious</source>
        <translation>&amp;Rückwärts suchen</translation>
    </message>
    <message>
        <source>Show the place with the text before this one</source>
        <translation>Die Stelle davor mit dem Text zeigen</translation>
    </message>
    <message>
        <source>Page pict&amp;ures</source>
        <translation>S&amp;eitenbilder</translation>
    </message>
    <message>
        <source>Show all pages as small pictures at the side</source>
        <translation>Alle Seiten als kleine Bilder am Rand zeigen</translation>
    </message>
</context>
<context>
    <name>signdesk::DeskFiles</name>
    <message>
        <source>signed-page</source>
        <translation>unterschriebene-seite</translation>
    </message>
    <message>
        <source>%1-signed</source>
        <translation>%1-unterschrieben</translation>
    </message>
    <message>
        <source>Page to sign</source>
        <translation>Seite zum Unterschreiben</translation>
    </message>
    <message>
        <source>Pages (*.pdf *.png *.jpg *.jpeg *.bmp *.svg)</source>
        <translation>Seiten (*.pdf *.png *.jpg *.jpeg *.bmp *.svg)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>%1 wird geöffnet...</translation>
    </message>
    <message>
        <source>%1 is protected by a password.</source>
        <translation>%1 ist durch ein Passwort geschützt.</translation>
    </message>
    <message>
        <source>This is not the password. Type it again.</source>
        <translation>Das ist nicht das Passwort. Geben Sie es noch einmal ein.</translation>
    </message>
    <message>
        <source>PDF with all pages (*.pdf)</source>
        <translation>PDF mit allen Seiten (*.pdf)</translation>
    </message>
    <message>
        <source>PNG picture of the signed page (*.png)</source>
        <translation>PNG-Bild der unterschriebenen Seite (*.png)</translation>
    </message>
    <message>
        <source>Save signed page</source>
        <translation>Unterschriebene Seite speichern</translation>
    </message>
    <message>
        <source>%1 is the document that you opened.</source>
        <translation>%1 ist das Dokument, das Sie geöffnet haben.</translation>
    </message>
    <message>
        <source>Shall the signed document take its place?</source>
        <translation>Soll das unterschriebene Dokument an seine Stelle treten?</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>Choose &amp;another name</source>
        <translation>&amp;Anderen Namen wählen</translation>
    </message>
    <message>
        <source>Saving %1...</source>
        <translation>%1 wird gespeichert...</translation>
    </message>
    <message>
        <source>Export signature</source>
        <translation>Unterschrift exportieren</translation>
    </message>
    <message>
        <source>signature</source>
        <translation>unterschrift</translation>
    </message>
    <message>
        <source>Export fingerprint</source>
        <translation>Fingerabdruck exportieren</translation>
    </message>
    <message>
        <source>fingerprint</source>
        <translation>fingerabdruck</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Es wird gedruckt...</translation>
    </message>
    <message>
        <source>The signature is neither saved nor printed.</source>
        <translation>Die Unterschrift ist weder gespeichert noch gedruckt.</translation>
    </message>
    <message>
        <source>Shall it be discarded?</source>
        <translation>Soll sie verworfen werden?</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Behalten</translation>
    </message>
    <message>
        <source>The document is signed digitally already.</source>
        <translation>Das Dokument ist bereits digital signiert.</translation>
    </message>
    <message>
        <source>Ink alone counts as a change after those signatures. With a certificate it would be a signature too: choose one at the right.</source>
        <translation>Tinte allein gilt als Änderung nach diesen Signaturen. Mit einem Zertifikat wäre sie selbst eine Signatur: Wählen Sie rechts eines aus.</translation>
    </message>
    <message>
        <source>&amp;Sign with ink alone</source>
        <translation>&amp;Nur mit Tinte unterschreiben</translation>
    </message>
    <message>
        <source>Go &amp;back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>The pad did not answer for a while. Strokes of the signature may be missing.</source>
        <translation>Das Pad hat eine Zeit lang nicht geantwortet. Der Unterschrift fehlen vielleicht Striche.</translation>
    </message>
    <message>
        <source>Compare it with what the signer has written. If anything is missing, go back, clear the field, and let the signer sign anew.</source>
        <translation>Vergleichen Sie sie mit dem, was geschrieben wurde. Wenn etwas fehlt, gehen Sie zurück, leeren Sie das Feld, und lassen Sie neu unterschreiben.</translation>
    </message>
    <message>
        <source>&amp;Confirm all the same</source>
        <translation>&amp;Trotzdem bestätigen</translation>
    </message>
    <message>
        <source>There is no picture of the fingerprint.</source>
        <translation>Es gibt kein Bild des Fingerabdrucks.</translation>
    </message>
    <message>
        <source>See that the computer has memory to spare. Nothing was written; the fingerprint is still here.</source>
        <translation>Sorgen Sie dafür, dass der Rechner genug Speicher frei hat. Es wurde nichts geschrieben; der Fingerabdruck ist noch da.</translation>
    </message>
    <message>
        <source>%1 has changed since you opened it.</source>
        <translation>%1 hat sich geändert, seit Sie es geöffnet haben.</translation>
    </message>
    <message>
        <source>What it has got since, perhaps another signature, would be lost. To keep both, choose another name.</source>
        <translation>Was seither dazukam, vielleicht eine andere Unterschrift, ginge verloren. Um beides zu behalten, wählen Sie einen anderen Namen.</translation>
    </message>
</context>
<context>
    <name>signdesk::DeskStatus</name>
    <message>
        <source>%1 points</source>
        <translation>%1 Punkte</translation>
    </message>
    <message>
        <source>%1 packets/s</source>
        <translation>%1 Pakete/s</translation>
    </message>
    <message>
        <source>%1 repaints/s</source>
        <translation>%1 Bilder/s</translation>
    </message>
</context>
<context>
    <name>signdesk::DeskWindow</name>
    <message>
        <source>Open the page to be signed, or start signing on the blank sheet.</source>
        <translation>Öffnen Sie die Seite zum Unterschreiben, oder beginnen Sie auf dem leeren Blatt.</translation>
    </message>
    <message>
        <source>Nothing is written yet, so there is nothing to confirm.</source>
        <translation>Noch ist nichts geschrieben, also gibt es nichts zu bestätigen.</translation>
    </message>
    <message>
        <source>About Sign Desk</source>
        <translation>Über Sign Desk</translation>
    </message>
    <message>
        <source>Sign Desk lets a customer sign a page on a signature pad, and saves or prints it with the signature.</source>
        <translation>Mit Sign Desk unterschreibt ein Kunde eine Seite auf einem Unterschriftenpad; sie wird mit der Unterschrift gespeichert oder gedruckt.</translation>
    </message>
    <message>
        <source>Move the field to where the signature belongs, then start signing.</source>
        <translation>Schieben Sie das Feld dorthin, wo unterschrieben wird, und beginnen Sie.</translation>
    </message>
    <message>
        <source>%1[*] - Sign Desk</source>
        <translation>%1[*] - Sign Desk</translation>
    </message>
    <message>
        <source>blank sheet</source>
        <translation>leeres Blatt</translation>
    </message>
    <message>
        <source>Signing the document...</source>
        <translation>Das Dokument wird unterschrieben...</translation>
    </message>
    <message>
        <source>The page is saved as it was when it was opened: its file has changed since then.</source>
        <translation>Die Seite ist so gespeichert, wie sie beim Öffnen war: Ihre Datei hat sich seitdem geändert.</translation>
    </message>
    <message>
        <source>Saved as %1. Press Done for the next customer.</source>
        <translation>Gespeichert als %1. Drücken Sie Fertig für den nächsten Kunden.</translation>
    </message>
    <message>
        <source>The page is printed as it was when it was opened: its file has changed since then.</source>
        <translation>Die Seite ist so gedruckt, wie sie beim Öffnen war: Ihre Datei hat sich seitdem geändert.</translation>
    </message>
    <message>
        <source>The page is printed.</source>
        <translation>Die Seite ist gedruckt.</translation>
    </message>
    <message>
        <source>Checking the signatures...</source>
        <translation>Die Signaturen werden geprüft...</translation>
    </message>
    <message>
        <source>The signature is exported.</source>
        <translation>Die Unterschrift ist exportiert.</translation>
    </message>
    <message>
        <source>There is no fingerprint.</source>
        <translation>Es gibt keinen Fingerabdruck.</translation>
    </message>
    <message>
        <source>Let the signer lay a finger on the pad&apos;s sensor.</source>
        <translation>Lassen Sie einen Finger auf den Sensor des Pads legen.</translation>
    </message>
    <message>
        <source>The fingerprint is exported.</source>
        <translation>Der Fingerabdruck ist exportiert.</translation>
    </message>
    <message>
        <source>The field is empty, to be signed anew.</source>
        <translation>Das Feld ist leer und kann neu unterschrieben werden.</translation>
    </message>
    <message>
        <source>The field is empty, but the pad does not answer: see that it is plugged in, cancel, and start again.</source>
        <translation>Das Feld ist leer, aber das Pad antwortet nicht: Ist es eingesteckt? Abbrechen und neu beginnen.</translation>
    </message>
    <message>
        <source>Cancelled. The pad is closed.</source>
        <translation>Abgebrochen. Das Pad ist geschlossen.</translation>
    </message>
    <message>
        <source>The signer tapped cancel after confirming; the confirmed signature is kept.</source>
        <translation>Nach dem Bestätigen wurde am Pad abgebrochen; die bestätigte Unterschrift bleibt.</translation>
    </message>
    <message>
        <source>The signer cancelled. The pad is closed.</source>
        <translation>Am Pad wurde abgebrochen. Das Pad ist geschlossen.</translation>
    </message>
    <message>
        <source>The last signature is no longer in the document.</source>
        <translation>Die letzte Unterschrift ist nicht mehr im Dokument.</translation>
    </message>
    <message>
        <source>Done. Open the next page, or start signing on the blank sheet.</source>
        <translation>Fertig. Öffnen Sie die nächste Seite oder beginnen Sie eine Unterschrift auf dem leeren Blatt.</translation>
    </message>
    <message>
        <source>Done. The document is as it was opened: start signing for the next customer, or open another one.</source>
        <translation>Fertig. Das Dokument ist wieder so, wie es geöffnet wurde: Beginnen Sie mit dem nächsten Kunden oder öffnen Sie ein anderes.</translation>
    </message>
    <message>
        <source>The signer may write on the pad.</source>
        <translation>Auf dem Pad kann unterschrieben werden.</translation>
    </message>
    <message>
        <source>Confirm here, or on the pad, when all is written.</source>
        <translation>Ist alles geschrieben, hier oder am Pad bestätigen.</translation>
    </message>
    <message>
        <source>Confirmed. Save or print it, then press Done; or start another signature on the document.</source>
        <translation>Bestätigt. Speichern oder drucken Sie, dann drücken Sie Fertig; oder beginnen Sie eine weitere Unterschrift auf dem Dokument.</translation>
    </message>
    <message>
        <source>Something was written after the confirmation: confirm again, or clear.</source>
        <translation>Nach dem Bestätigen wurde weitergeschrieben: neu bestätigen oder leeren.</translation>
    </message>
    <message>
        <source>The pad no longer answers. The confirmed signature is kept: save, export or print it.</source>
        <translation>Das Pad antwortet nicht mehr. Die bestätigte Unterschrift ist noch da: speichern, exportieren oder drucken.</translation>
    </message>
    <message>
        <source>The pad no longer answers. What it sent is kept, but strokes may be missing: see that it is plugged in, cancel, and start again.</source>
        <translation>Das Pad antwortet nicht mehr. Was es gesendet hat, ist noch da, doch vielleicht fehlen Striche. Ist das Pad eingesteckt? Abbrechen und neu beginnen.</translation>
    </message>
    <message>
        <source>The pad no longer answers: see that it is plugged in, cancel, and start again.</source>
        <translation>Das Pad antwortet nicht mehr. Ist es eingesteckt? Abbrechen und neu beginnen.</translation>
    </message>
    <message>
        <source>The pad answers again.</source>
        <translation>Das Pad antwortet wieder.</translation>
    </message>
    <message>
        <source>The pad answers again, but strokes may be missing: clear the field and let the signer sign anew.</source>
        <translation>Das Pad antwortet wieder, doch vielleicht fehlen Striche: das Feld leeren und neu unterschreiben lassen.</translation>
    </message>
    <message>
        <source>The pad answers again. The signer may write on the pad.</source>
        <translation>Das Pad antwortet wieder. Auf dem Pad kann unterschrieben werden.</translation>
    </message>
    <message>
        <source>Saved as %1, but without what was written since: confirm that, and save again.</source>
        <translation>Gespeichert als %1, aber ohne das, was seither geschrieben wurde: bestätigen Sie es und speichern Sie noch einmal.</translation>
    </message>
    <message>
        <source>The page is printed, but without what was written since: confirm that, and print again.</source>
        <translation>Die Seite ist gedruckt, aber ohne das, was seither geschrieben wurde: bestätigen Sie es und drucken Sie noch einmal.</translation>
    </message>
    <message>
        <source>Save or print it now: if the computer or Sign Desk stopped, the signature would be lost, for %1 cannot be written.</source>
        <translation>Speichern oder drucken Sie jetzt: fiele der Rechner oder das Programm aus, so wäre die Unterschrift verloren, denn %1 lässt sich nicht schreiben.</translation>
    </message>
    <message>
        <source>An earlier Sign Desk left a signature that was not saved, but its file is damaged.</source>
        <translation>Das Programm wurde beendet, bevor eine Unterschrift gespeichert war, doch die Datei mit ihr ist beschädigt.</translation>
    </message>
    <message>
        <source>It was put aside as %1. Ask the signer to sign anew.</source>
        <translation>Sie liegt jetzt als %1. Bitten Sie darum, noch einmal zu unterschreiben.</translation>
    </message>
    <message>
        <source>The document is signed as before Sign Desk ended. Save or print it, then press Done.</source>
        <translation>Das Dokument ist unterschrieben wie vor dem Ende des Programms. Speichern oder drucken Sie es und drücken Sie dann Fertig.</translation>
    </message>
    <message>
        <source>The signature was to be made with the certificate of %1.</source>
        <translation>Die Unterschrift sollte mit dem Zertifikat von %1 geleistet werden.</translation>
    </message>
    <message>
        <source>Choose it again: Sign Desk keeps no keys.</source>
        <translation>Wählen Sie es noch einmal: das Programm bewahrt keine Schlüssel auf.</translation>
    </message>
</context>
<context>
    <name>signdesk::Document</name>
    <message>
        <source>Ask for a copy of the document that is not locked.</source>
        <translation>Bitten Sie um eine Fassung des Dokuments, die nicht gesperrt ist.</translation>
    </message>
    <message>
        <source>Choose another field, or put the signature elsewhere on the page.</source>
        <translation>Wählen Sie ein anderes Feld oder setzen Sie die Unterschrift an eine andere Stelle der Seite.</translation>
    </message>
    <message>
        <source>Choose another certificate, or none.</source>
        <translation>Wählen Sie ein anderes Zertifikat oder keines.</translation>
    </message>
    <message>
        <source>See that the card is in its reader, and try again.</source>
        <translation>Sorgen Sie dafür, dass die Karte im Leser steckt, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The document is signed already, and encrypted or damaged: another signature would break the earlier ones.</source>
        <translation>Das Dokument ist bereits signiert und verschlüsselt oder beschädigt: Eine weitere Unterschrift würde die früheren zerstören.</translation>
    </message>
    <message>
        <source>The document is certified, and its certification forbids every change.</source>
        <translation>Das Dokument ist zertifiziert, und die Zertifizierung verbietet jede Änderung.</translation>
    </message>
    <message>
        <source>The document is certified: it may be signed with a certificate, but not with ink alone.</source>
        <translation>Das Dokument ist zertifiziert: Es darf mit einem Zertifikat unterschrieben werden, aber nicht mit Tinte allein.</translation>
    </message>
    <message>
        <source>Choose a certificate at the right, and sign with it.</source>
        <translation>Wählen Sie rechts ein Zertifikat und unterschreiben Sie damit.</translation>
    </message>
    <message>
        <source>This field of the form is signed already.</source>
        <translation>Dieses Feld des Formulars ist bereits unterschrieben.</translation>
    </message>
    <message>
        <source>An earlier signature forbids to sign this field.</source>
        <translation>Eine frühere Signatur verbietet, dieses Feld zu unterschreiben.</translation>
    </message>
    <message>
        <source>This field of the form is too small for ink.</source>
        <translation>Dieses Feld des Formulars ist zu klein für Tinte.</translation>
    </message>
    <message>
        <source>The signature&apos;s field does not lie on the page.</source>
        <translation>Das Feld der Unterschrift liegt nicht auf der Seite.</translation>
    </message>
    <message>
        <source>Move the field onto the page.</source>
        <translation>Schieben Sie das Feld auf die Seite.</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>Das ist nicht das Passwort.</translation>
    </message>
    <message>
        <source>Type it again.</source>
        <translation>Geben Sie es noch einmal ein.</translation>
    </message>
    <message>
        <source>The card does not take this PIN.</source>
        <translation>Die Karte nimmt diese PIN nicht an.</translation>
    </message>
    <message>
        <source>Type it again; too many wrong ones lock the card.</source>
        <translation>Geben Sie sie noch einmal ein; zu viele falsche sperren die Karte.</translation>
    </message>
    <message>
        <source>The file is no certificate with a key.</source>
        <translation>Die Datei ist kein Zertifikat mit Schlüssel.</translation>
    </message>
    <message>
        <source>Choose a PKCS#12 file; its name mostly ends with .p12 or .pfx.</source>
        <translation>Wählen Sie eine PKCS#12-Datei; ihr Name endet meist auf .p12 oder .pfx.</translation>
    </message>
    <message>
        <source>There is no key with a certificate in the file.</source>
        <translation>In der Datei ist kein Schlüssel mit Zertifikat.</translation>
    </message>
    <message>
        <source>The certificate&apos;s file is encrypted in a way that is no longer safe.</source>
        <translation>Die Datei des Zertifikats ist auf eine Weise verschlüsselt, die nicht mehr sicher ist.</translation>
    </message>
    <message>
        <source>Export it anew from the program that it came from.</source>
        <translation>Exportieren Sie sie neu aus dem Programm, aus dem sie stammt.</translation>
    </message>
    <message>
        <source>The certificate&apos;s file is not there.</source>
        <translation>Die Datei des Zertifikats ist nicht da.</translation>
    </message>
    <message>
        <source>There is no such card or token.</source>
        <translation>Eine solche Karte oder ein solches Token gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no such certificate with a key on the token.</source>
        <translation>Auf dem Token ist kein solches Zertifikat mit Schlüssel.</translation>
    </message>
    <message>
        <source>There are several such certificates on the token.</source>
        <translation>Auf dem Token sind mehrere solche Zertifikate.</translation>
    </message>
    <message>
        <source>Say which with object= or id= in its address.</source>
        <translation>Sagen Sie mit object= oder id= in der Adresse, welches.</translation>
    </message>
    <message>
        <source>The token&apos;s address holds a PIN, where everyone can read it.</source>
        <translation>In der Adresse des Tokens steht eine PIN, wo jeder sie lesen kann.</translation>
    </message>
    <message>
        <source>Leave it out; the desk asks for the PIN.</source>
        <translation>Lassen Sie sie weg; das Programm fragt nach der PIN.</translation>
    </message>
    <message>
        <source>The module for the token cannot be loaded.</source>
        <translation>Das Modul für das Token kann nicht geladen werden.</translation>
    </message>
    <message>
        <source>Have the token&apos;s software installed, and its path put into the address.</source>
        <translation>Lassen Sie die Software des Tokens installieren und ihren Pfad in die Adresse setzen.</translation>
    </message>
    <message>
        <source>The certificate has expired.</source>
        <translation>Das Zertifikat ist abgelaufen.</translation>
    </message>
    <message>
        <source>The certificate is not valid yet.</source>
        <translation>Das Zertifikat ist noch nicht gültig.</translation>
    </message>
    <message>
        <source>The certificate is not meant for signatures.</source>
        <translation>Das Zertifikat ist nicht für Signaturen bestimmt.</translation>
    </message>
    <message>
        <source>The certificate&apos;s key is of a kind that cannot sign a PDF.</source>
        <translation>Der Schlüssel des Zertifikats ist von einer Art, die kein PDF signieren kann.</translation>
    </message>
    <message>
        <source>The key or its token refused to sign.</source>
        <translation>Der Schlüssel oder sein Token hat die Signatur verweigert.</translation>
    </message>
    <message>
        <source>The document needs more memory than there is.</source>
        <translation>Das Dokument braucht mehr Speicher, als da ist.</translation>
    </message>
    <message>
        <source>Close other programs, and try again. The signature is still here.</source>
        <translation>Schließen Sie andere Programme und versuchen Sie es noch einmal. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>The document is protected by another password.</source>
        <translation>Das Dokument ist durch ein anderes Passwort geschützt.</translation>
    </message>
    <message>
        <source>Open it anew with its password.</source>
        <translation>Öffnen Sie es neu mit seinem Passwort.</translation>
    </message>
    <message>
        <source>The document cannot be signed: %1</source>
        <translation>Das Dokument kann nicht unterschrieben werden: %1</translation>
    </message>
    <message>
        <source>Have it made anew where it comes from, or print it. The signature is still here.</source>
        <translation>Lassen Sie es dort neu erstellen, wo es herkommt, oder drucken Sie es. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>The document does not allow it: %1</source>
        <translation>Das Dokument lässt es nicht zu: %1</translation>
    </message>
    <message>
        <source>The certificate cannot be used: %1</source>
        <translation>Das Zertifikat kann nicht verwendet werden: %1</translation>
    </message>
    <message>
        <source>Signature, %1</source>
        <translation>Unterschrift, %1</translation>
    </message>
    <message>
        <source>Signature of %1, %2</source>
        <translation>Unterschrift von %1, %2</translation>
    </message>
    <message>
        <source>The signed document did not come out whole.</source>
        <translation>Das unterschriebene Dokument ist nicht vollständig entstanden.</translation>
    </message>
    <message>
        <source>Nothing was written, and the signature is still here. Export the signature, and sign another copy of the document.</source>
        <translation>Es wurde nichts geschrieben, und die Unterschrift ist noch da. Exportieren Sie die Unterschrift und unterschreiben Sie eine andere Fassung des Dokuments.</translation>
    </message>
</context>
<context>
    <name>signdesk::FindBar</name>
    <message>
        <source>Find text</source>
        <translation>Text suchen</translation>
    </message>
    <message>
        <source>The text to be found on the pages; Return goes to the next place</source>
        <translation>Der Text, der auf den Seiten gesucht wird; die Eingabetaste zeigt die nächste Stelle</translation>
    </message>
    <message>
        <source>Text to be found</source>
        <translation>Gesuchter Text</translation>
    </message>
    <message>
        <source>Place before</source>
        <translation>Vorherige Stelle</translation>
    </message>
    <message>
        <source>To the place before, Shift+F3</source>
        <translation>Zur vorherigen Stelle, Umschalt+F3</translation>
    </message>
    <message>
        <source>Next place</source>
        <translation>Nächste Stelle</translation>
    </message>
    <message>
        <source>To the next place, F3</source>
        <translation>Zur nächsten Stelle, F3</translation>
    </message>
    <message>
        <source>more than %1</source>
        <translation>mehr als %1</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Wird gesucht...</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>signdesk::InkView</name>
    <message>
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>Grows while the signer writes on the pad</source>
        <translation>Wächst, während auf dem Pad geschrieben wird</translation>
    </message>
</context>
<context>
    <name>signdesk::LeftSignature</name>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>The blank sheet was signed on %1, but neither saved nor printed: Sign Desk ended before.</source>
        <translation>Das leere Blatt wurde am %1 unterschrieben, aber weder gespeichert noch gedruckt: das Programm endete vorher.</translation>
    </message>
    <message>
        <source>%1 was signed on %2, but neither saved nor printed: Sign Desk ended before.</source>
        <translation>%1 wurde am %2 unterschrieben, aber weder gespeichert noch gedruckt: das Programm endete vorher.</translation>
    </message>
    <message>
        <source>The signature is still here. Shall it be put on the document again?</source>
        <translation>Die Unterschrift ist noch da. Soll sie wieder auf das Dokument?</translation>
    </message>
    <message>
        <source>&amp;Go on with it</source>
        <translation>Damit &amp;fortfahren</translation>
    </message>
    <message>
        <source>%1 is no longer there.</source>
        <translation>%1 ist nicht mehr da.</translation>
    </message>
    <message>
        <source>%1 has changed since it was signed.</source>
        <translation>%1 ist nicht mehr so, wie es unterschrieben wurde.</translation>
    </message>
    <message>
        <source>%1 is not the document that was signed.</source>
        <translation>%1 ist nicht das Dokument, das unterschrieben wurde.</translation>
    </message>
    <message>
        <source>The signature is not put on another document than its signer saw. It is still here: choose the document as it was signed, or bring it back and start again.</source>
        <translation>Die Unterschrift kommt nur auf das Dokument, das vorlag, als sie geschrieben wurde. Sie ist noch da: wählen Sie dieses Dokument oder bringen Sie es zurück und starten Sie das Programm noch einmal.</translation>
    </message>
    <message>
        <source>&amp;Choose the document...</source>
        <translation>Dokument &amp;wählen...</translation>
    </message>
</context>
<context>
    <name>signdesk::Main</name>
    <message>
        <source>Lets a customer sign a page on a signature pad.</source>
        <translation>Lässt einen Kunden eine Seite auf einem Unterschriftenpad unterschreiben.</translation>
    </message>
    <message>
        <source>The pad on the desk: %1.</source>
        <translation>Das Pad auf dem Tisch: %1.</translation>
    </message>
    <message>
        <source>Where the pad&apos;s driver libkvsignpaddrv.so is, or simulator for the installed one; else here.</source>
        <translation>Wo der Treiber libkvsignpaddrv.so des Pads liegt, oder simulator für den installierten Simulator; sonst hier.</translation>
    </message>
    <message>
        <source>Use the driver although others could have put another one in its place.</source>
        <translation>Den Treiber verwenden, obwohl andere ihn ausgetauscht haben könnten.</translation>
    </message>
    <message>
        <source>Start signing, and when the signer has confirmed, write a picture of the window and end.</source>
        <translation>Beginnen, nach dem Bestätigen ein Bild des Fensters schreiben und enden.</translation>
    </message>
    <message>
        <source>The PDF or picture to be signed.</source>
        <translation>Das PDF oder Bild, das unterschrieben wird.</translation>
    </message>
    <message>
        <source>there is no screen for a window: see that QT_QPA_PLATFORM and DISPLAY are right, or not set</source>
        <translation>es gibt keinen Bildschirm für ein Fenster: QT_QPA_PLATFORM und DISPLAY müssen stimmen oder dürfen nicht gesetzt sein</translation>
    </message>
    <message>
        <source>the pad simulator is not installed: apt-get install kvsignpad-simulator</source>
        <translation>der Pad-Simulator ist nicht installiert: apt-get install kvsignpad-simulator</translation>
    </message>
    <message>
        <source>there is no directory %1</source>
        <translation>es gibt kein Verzeichnis %1</translation>
    </message>
    <message>
        <source>the models are %1</source>
        <translation>die Modelle sind %1</translation>
    </message>
    <message>
        <source>one page at a time</source>
        <translation>eine Seite auf einmal</translation>
    </message>
</context>
<context>
    <name>signdesk::OutputPanel</name>
    <message>
        <source>Signature alone</source>
        <translation>Unterschrift allein</translation>
    </message>
    <message>
        <source>Cut exports to the in&amp;k</source>
        <translation>Auf Tinte &amp;zuschneiden</translation>
    </message>
    <message>
        <source>Off: an exported signature shows the whole field</source>
        <translation>Aus: Eine exportierte Unterschrift zeigt das ganze Feld</translation>
    </message>
    <message>
        <source>300 dpi</source>
        <translation>300 dpi</translation>
    </message>
    <message>
        <source>150 dpi</source>
        <translation>150 dpi</translation>
    </message>
    <message>
        <source>Of an exported signature, in dots per inch</source>
        <translation>Einer exportierten Unterschrift, in Punkten je Zoll</translation>
    </message>
    <message>
        <source>E&amp;xport signature...</source>
        <translation>Unterschrift e&amp;xportieren...</translation>
    </message>
    <message>
        <source>&amp;Quality</source>
        <translation>&amp;Qualität</translation>
    </message>
</context>
<context>
    <name>signdesk::PadPanel</name>
    <message>
        <source>The pad does not answer</source>
        <translation>Das Pad antwortet nicht</translation>
    </message>
    <message>
        <source>No pad in use</source>
        <translation>Kein Pad in Gebrauch</translation>
    </message>
    <message>
        <source>The signer may write</source>
        <translation>Bereit zum Schreiben</translation>
    </message>
    <message>
        <source>The signer writes</source>
        <translation>Es wird geschrieben</translation>
    </message>
    <message>
        <source>Confirmed</source>
        <translation>Bestätigt</translation>
    </message>
    <message>
        <source>Changed since: confirm anew</source>
        <translation>Geändert: neu bestätigen</translation>
    </message>
    <message>
        <source>Pad</source>
        <translation>Pad</translation>
    </message>
    <message>
        <source>The signature pad that stands on the desk</source>
        <translation>Das Unterschriftenpad auf dem Tisch</translation>
    </message>
    <message>
        <source>&amp;Model</source>
        <translation>&amp;Modell</translation>
    </message>
    <message>
        <source>S&amp;tart signing</source>
        <translation>Un&amp;terschrift beginnen</translation>
    </message>
    <message>
        <source>&amp;Confirm</source>
        <translation>Best&amp;ätigen</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>Abbre&amp;chen</translation>
    </message>
</context>
<context>
    <name>signdesk::PadSession</name>
    <message>
        <source>There is no pad driver: %1 does not exist.</source>
        <translation>Es gibt keinen Pad-Treiber: %1 ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>Install the driver that came with the pad, and start this program in the driver&apos;s directory or with --driver-directory.</source>
        <translation>Installieren Sie den Treiber des Pads, und starten Sie dieses Programm in dessen Verzeichnis oder mit --driver-directory.</translation>
    </message>
    <message>
        <source>No %1 was found.</source>
        <translation>Es wurde kein %1 gefunden.</translation>
    </message>
    <message>
        <source>See that the pad is plugged in, that it is the chosen model, and that no other program uses it. Then start signing again.</source>
        <translation>Ist das Pad eingesteckt, ist es das gewählte Modell, und benutzt es kein anderes Programm? Beginnen Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>The pad driver is not used: others could have put another one in its place, since they may write to %1.</source>
        <translation>Der Treiber des Pads wird nicht verwendet: Andere könnten ihn ausgetauscht haben, denn sie dürfen %1 ändern.</translation>
    </message>
    <message>
        <source>Have that put right (%1), or start this program with --unsafe-driver.</source>
        <translation>Lassen Sie das in Ordnung bringen (%1), oder starten Sie dieses Programm mit --unsafe-driver.</translation>
    </message>
</context>
<context>
    <name>signdesk::PageBox</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Page in sight</source>
        <translation>Gezeigte Seite</translation>
    </message>
    <message>
        <source>Type a number to see that page; the signature&apos;s field stays on its own</source>
        <translation>Eine Nummer eingeben, um diese Seite zu sehen; das Feld der Unterschrift bleibt auf seiner</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>von %1</translation>
    </message>
</context>
<context>
    <name>signdesk::PageView</name>
    <message>
        <source>Page to sign</source>
        <translation>Seite zum Unterschreiben</translation>
    </message>
    <message>
        <source>The arrow keys move the signature&apos;s field by a millimetre, with Ctrl by ten; plus and minus change its size. Page Up, Page Down, Home and End show other parts of the pages.</source>
        <translation>Die Pfeiltasten schieben das Feld der Unterschrift um einen Millimeter, mit Strg um zehn; plus und minus ändern seine Größe. Bild auf, Bild ab, Pos1 und Ende zeigen andere Stellen der Seiten.</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>Seite %1</translation>
    </message>
    <message>
        <source>This page cannot be shown.</source>
        <translation>Diese Seite kann nicht gezeigt werden.</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
</context>
<context>
    <name>signdesk::Pages</name>
    <message>
        <source>there is no such file.</source>
        <translation>es gibt keine solche Datei.</translation>
    </message>
    <message>
        <source>it is no file.</source>
        <translation>das ist keine Datei.</translation>
    </message>
    <message>
        <source>you may not read it.</source>
        <translation>Sie dürfen sie nicht lesen.</translation>
    </message>
    <message>
        <source>it is too large.</source>
        <translation>sie ist zu groß.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 lässt sich nicht öffnen: %2</translation>
    </message>
    <message>
        <source>Choose another file; the page shown before is still there.</source>
        <translation>Wählen Sie eine andere Datei; die bisherige Seite ist noch da.</translation>
    </message>
    <message>
        <source>it has more pixels than there is memory for.</source>
        <translation>das Bild hat mehr Pixel, als der Speicher fasst.</translation>
    </message>
    <message>
        <source>it is a JPEG of too many scans.</source>
        <translation>das JPEG besteht aus zu vielen Durchgängen.</translation>
    </message>
    <message>
        <source>it is an SVG with pictures or style sheets; make a PDF of it first.</source>
        <translation>das SVG enthält Bilder oder Stilvorlagen; bitte erst ein PDF daraus machen.</translation>
    </message>
    <message>
        <source>it is neither a PDF nor a picture.</source>
        <translation>sie ist weder ein PDF noch ein Bild.</translation>
    </message>
    <message>
        <source>The page cannot be made into a PDF.</source>
        <translation>Aus der Seite kann kein PDF gemacht werden.</translation>
    </message>
    <message>
        <source>See that the computer has memory to spare. The signature is still here.</source>
        <translation>Sorgen Sie dafür, dass der Rechner genug Speicher frei hat. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>it is a damaged PDF.</source>
        <translation>das PDF ist beschädigt.</translation>
    </message>
    <message>
        <source>it has no page.</source>
        <translation>sie hat keine Seite.</translation>
    </message>
    <message>
        <source>its page %1 has no size.</source>
        <translation>ihre Seite %1 hat keine Größe.</translation>
    </message>
</context>
<context>
    <name>signdesk::PasswordDialog</name>
    <message>
        <source>&amp;Password or PIN</source>
        <translation>&amp;Passwort oder PIN</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>signdesk::PenPanel</name>
    <message>
        <source>Pen</source>
        <translation>Stift</translation>
    </message>
    <message>
        <source>Width &amp;by pressure</source>
        <translation>Druck &amp;verändert Breite</translation>
    </message>
    <message>
        <source>From 1, fine, to 10, broad; for what is written from now on</source>
        <translation>Von 1, fein, bis 10, breit; für alles, was ab jetzt geschrieben wird</translation>
    </message>
    <message>
        <source>Of the whole signature: it is chosen before anything is written</source>
        <translation>Der ganzen Unterschrift: Sie wird gewählt, bevor etwas geschrieben ist</translation>
    </message>
    <message>
        <source>Off: all strokes are equally broad</source>
        <translation>Aus: Alle Striche sind gleich breit</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Dark blue</source>
        <translation>Dunkelblau</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>Andere...</translation>
    </message>
    <message>
        <source>W&amp;idth</source>
        <translation>B&amp;reite</translation>
    </message>
    <message>
        <source>C&amp;olour</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Colour of the pen</source>
        <translation>Farbe des Stifts</translation>
    </message>
</context>
<context>
    <name>signdesk::PlacePanel</name>
    <message>
        <source>Place of the signature</source>
        <translation>Ort der Unterschrift</translation>
    </message>
    <message>
        <source>The field of the document&apos;s form that the signature fills</source>
        <translation>Das Feld im Formular des Dokuments, das die Unterschrift füllt</translation>
    </message>
    <message>
        <source>Empt&amp;y field</source>
        <translation>&amp;Wohin</translation>
    </message>
    <message>
        <source>P&amp;age</source>
        <translation>Se&amp;ite</translation>
    </message>
    <message>
        <source>L&amp;eft</source>
        <translation>Li&amp;nks</translation>
    </message>
    <message>
        <source>From the page&apos;s left edge, in millimetres</source>
        <translation>Vom linken Rand der Seite, in Millimetern</translation>
    </message>
    <message>
        <source>To&amp;p</source>
        <translation>&amp;Oben</translation>
    </message>
    <message>
        <source>From the page&apos;s upper edge, in millimetres</source>
        <translation>Vom oberen Rand der Seite, in Millimetern</translation>
    </message>
    <message>
        <source>Si&amp;ze</source>
        <translation>Größ&amp;e</translation>
    </message>
    <message>
        <source>The width of the field, in millimetres; its height follows from the pad</source>
        <translation>Die Breite des Feldes in Millimetern; die Höhe folgt aus dem Pad</translation>
    </message>
    <message>
        <source>Centre of the field</source>
        <translation>Mitte des Feldes</translation>
    </message>
    <message>
        <source>Right end of the field</source>
        <translation>Rechts im Feld</translation>
    </message>
    <message>
        <source>Field of its own</source>
        <translation>Eigenes Feld</translation>
    </message>
    <message>
        <source>Where the page shows the finger on the pad&apos;s sensor</source>
        <translation>Wo die Seite den Finger auf dem Sensor des Pads zeigt</translation>
    </message>
    <message>
        <source>Fin&amp;gerprint</source>
        <translation>Fingera&amp;bdruck</translation>
    </message>
    <message>
        <source>The page that is to bear the signature</source>
        <translation>Die Seite, auf die die Unterschrift kommt</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>von %1</translation>
    </message>
    <message>
        <source>None: a free place</source>
        <translation>Freie Stelle</translation>
    </message>
</context>
<context>
    <name>signdesk::ResultPanel</name>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Sa&amp;ve page...</source>
        <translation>S&amp;peichern...</translation>
    </message>
    <message>
        <source>P&amp;rint...</source>
        <translation>Druc&amp;ken...</translation>
    </message>
    <message>
        <source>&amp;Done, next customer</source>
        <translation>Fertig, näch&amp;ster Kunde</translation>
    </message>
</context>
<context>
    <name>signdesk::SafeFile</name>
    <message>
        <source>%1 was not written: there is no such folder.</source>
        <translation>%1 wurde nicht geschrieben: Es gibt diesen Ordner nicht.</translation>
    </message>
    <message>
        <source>Choose another folder. The signature is still here.</source>
        <translation>Wählen Sie einen anderen Ordner. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>%1 was not written: you may not write in this folder.</source>
        <translation>%1 wurde nicht geschrieben: In diesen Ordner dürfen Sie nicht schreiben.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>See that there is space on the disk and that no folder or protected file has this name. The signature is still here.</source>
        <translation>Ist Platz auf dem Datenträger, und trägt kein Ordner und keine geschützte Datei diesen Namen? Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>%1 was not written: it is no file.</source>
        <translation>%1 wurde nicht geschrieben: das ist keine Datei.</translation>
    </message>
    <message>
        <source>Choose another name. The signature is still here.</source>
        <translation>Wählen Sie einen anderen Namen. Die Unterschrift ist noch da.</translation>
    </message>
</context>
<context>
    <name>signdesk::SignatoryDialog</name>
    <message>
        <source>The key of %1 is protected by a password.</source>
        <translation>Der Schlüssel von %1 ist durch ein Passwort geschützt.</translation>
    </message>
    <message>
        <source>Digital signature</source>
        <translation>Digitale Signatur</translation>
    </message>
    <message>
        <source>With a certificate each signature on the page is a digital one too: it says whose certificate signed, and shows whether the document was changed afterwards.</source>
        <translation>Mit einem Zertifikat ist jede Unterschrift auf der Seite auch eine digitale: Sie sagt, wessen Zertifikat signiert hat, und zeigt, ob das Dokument danach geändert wurde.</translation>
    </message>
    <message>
        <source>file.p12 or pkcs11:token=...</source>
        <translation>datei.p12 oder pkcs11:token=...</translation>
    </message>
    <message>
        <source>A PKCS#12 file, or a token&apos;s address that begins with pkcs11:</source>
        <translation>Eine PKCS#12-Datei oder die Adresse eines Tokens, die mit pkcs11: beginnt</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>&amp;Certificate</source>
        <translation>&amp;Zertifikat</translation>
    </message>
    <message>
        <source>&amp;Reason</source>
        <translation>&amp;Grund</translation>
    </message>
    <message>
        <source>&amp;Place</source>
        <translation>&amp;Ort</translation>
    </message>
    <message>
        <source>&amp;Use certificate</source>
        <translation>Zertifikat &amp;verwenden</translation>
    </message>
    <message>
        <source>&amp;Ink alone</source>
        <translation>Nur &amp;Tinte</translation>
    </message>
    <message>
        <source>C&amp;ancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>Zertifikat</translation>
    </message>
    <message>
        <source>Certificates with their keys (*.p12 *.pfx)</source>
        <translation>Zertifikate mit Schlüssel (*.p12 *.pfx)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>No certificate is chosen.</source>
        <translation>Es ist kein Zertifikat gewählt.</translation>
    </message>
    <message>
        <source>Choose its file, type a token&apos;s address, or sign with ink alone.</source>
        <translation>Wählen Sie seine Datei, geben Sie die Adresse eines Tokens ein oder unterschreiben Sie nur mit Tinte.</translation>
    </message>
</context>
<context>
    <name>signdesk::SignatoryPanel</name>
    <message>
        <source>Certificate</source>
        <translation>Zertifikat</translation>
    </message>
    <message>
        <source>Digital signat&amp;ure...</source>
        <translation>Di&amp;gitale Signatur...</translation>
    </message>
    <message>
        <source>None: ink alone</source>
        <translation>Keines: nur Tinte</translation>
    </message>
    <message>
        <source>Signed as %1</source>
        <translation>Signiert als %1</translation>
    </message>
</context>
<context>
    <name>signdesk::SignatureOutput</name>
    <message>
        <source>There is no whole picture of the signature.</source>
        <translation>Es gibt kein vollständiges Bild der Unterschrift.</translation>
    </message>
    <message>
        <source>See that something is written in the field, and that the computer has memory to spare. Nothing was written; the signature is still here.</source>
        <translation>Sorgen Sie dafür, dass im Feld etwas geschrieben steht und der Rechner genug Speicher frei hat. Es wurde nichts gespeichert; die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>%1: a signature is not written in this format.</source>
        <translation>%1: In diesem Format wird keine Unterschrift geschrieben.</translation>
    </message>
    <message>
        <source>Let the name end with .png, .svg, .pdf, .jpg or .bmp.</source>
        <translation>Lassen Sie den Namen auf .png, .svg, .pdf, .jpg oder .bmp enden.</translation>
    </message>
</context>
<context>
    <name>signdesk::SignedDocument</name>
    <message>
        <source>The printer does not take the page.</source>
        <translation>Der Drucker nimmt die Seite nicht an.</translation>
    </message>
    <message>
        <source>See that it is switched on and has paper, or print into a file. The signature is still here.</source>
        <translation>Ist er eingeschaltet, und hat er Papier? Oder drucken Sie in eine Datei. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>Page %1 cannot be drawn.</source>
        <translation>Seite %1 lässt sich nicht zeichnen.</translation>
    </message>
    <message>
        <source>Open the file anew. The signature itself can still be exported.</source>
        <translation>Öffnen Sie die Datei neu. Die Unterschrift selbst lässt sich noch exportieren.</translation>
    </message>
    <message>
        <source>%1: a signed page is not written in this format.</source>
        <translation>%1: In diesem Format wird keine unterschriebene Seite geschrieben.</translation>
    </message>
    <message>
        <source>Let the name end with .pdf or .png.</source>
        <translation>Lassen Sie den Namen auf .pdf oder .png enden.</translation>
    </message>
    <message>
        <source>There is no room to print: the disk with the temporary files is full.</source>
        <translation>Zum Drucken ist kein Platz: Der Datenträger mit den vorübergehenden Dateien ist voll.</translation>
    </message>
    <message>
        <source>Make room on it, or print into a file. The signature is still here.</source>
        <translation>Schaffen Sie dort Platz, oder drucken Sie in eine Datei. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>The page could not be printed whole.</source>
        <translation>Die Seite konnte nicht vollständig gedruckt werden.</translation>
    </message>
    <message>
        <source>See that the computer has memory to spare. The signature is still here.</source>
        <translation>Sorgen Sie dafür, dass der Rechner genug Speicher frei hat. Die Unterschrift ist noch da.</translation>
    </message>
</context>
<context>
    <name>signdesk::ThumbnailList</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>All pages as small pictures; the chosen one is shown</source>
        <translation>Alle Seiten als kleine Bilder; die gewählte wird gezeigt</translation>
    </message>
</context>
<context>
    <name>signdesk::ThumbnailModel</name>
    <message>
        <source>Page %1, signed here</source>
        <translation>Seite %1, hier unterschrieben</translation>
    </message>
    <message>
        <source>Page %1</source>
        <translation>Seite %1</translation>
    </message>
</context>
<context>
    <name>signdesk::Trouble</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>signdesk::VerifyDialog</name>
    <message>
        <source>Nobody knows</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>%1, on page %2</source>
        <translation>%1, auf Seite %2</translation>
    </message>
    <message>
        <source>%1, by a time stamp</source>
        <translation>%1, laut Zeitstempel</translation>
    </message>
    <message>
        <source>%1, by the signer&apos;s clock</source>
        <translation>%1, laut Uhr des Signierenden</translation>
    </message>
    <message>
        <source>Not said</source>
        <translation>Keine Angabe</translation>
    </message>
    <message>
        <source>What was signed was changed, or cannot be read</source>
        <translation>Das Signierte wurde geändert oder ist nicht lesbar</translation>
    </message>
    <message>
        <source>Yes, and that is not allowed</source>
        <translation>Ja, und das ist nicht erlaubt</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Only what is allowed was added</source>
        <translation>Nur Erlaubtes kam hinzu</translation>
    </message>
    <message>
        <source>Trusted, issued by %1</source>
        <translation>Vertrauenswürdig, ausgestellt von %1</translation>
    </message>
    <message>
        <source>Not trusted: nobody but its owner vouches for it</source>
        <translation>Nicht vertrauenswürdig: Nur der Inhaber selbst bürgt dafür</translation>
    </message>
    <message>
        <source>Not trusted: its issuer is not known here</source>
        <translation>Nicht vertrauenswürdig: Der Aussteller ist hier unbekannt</translation>
    </message>
    <message>
        <source>Expired, and no time stamp says that it was valid</source>
        <translation>Abgelaufen, und kein Zeitstempel sagt, dass es gültig war</translation>
    </message>
    <message>
        <source>Not meant for signatures</source>
        <translation>Nicht für Signaturen bestimmt</translation>
    </message>
    <message>
        <source>The whole file</source>
        <translation>Die ganze Datei</translation>
    </message>
    <message>
        <source>An earlier revision</source>
        <translation>Eine frühere Fassung</translation>
    </message>
    <message>
        <source>Valid</source>
        <translation>Gültig</translation>
    </message>
    <message>
        <source>Not valid: made in a way that is too weak</source>
        <translation>Ungültig: auf zu schwache Weise gemacht</translation>
    </message>
    <message>
        <source>Not valid</source>
        <translation>Ungültig</translation>
    </message>
    <message>
        <source>There is no digital signature in this document.</source>
        <translation>In diesem Dokument ist keine digitale Signatur.</translation>
    </message>
    <message>
        <source>All digital signatures of this document are valid.</source>
        <translation>Alle digitalen Signaturen dieses Dokuments sind gültig.</translation>
    </message>
    <message>
        <source>Not all digital signatures of this document are valid: see the last column.</source>
        <translation>Nicht alle digitalen Signaturen dieses Dokuments sind gültig: siehe die letzte Spalte.</translation>
    </message>
    <message>
        <source>Digital signatures of %1</source>
        <translation>Digitale Signaturen von %1</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Signer</source>
        <translation>Wer</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>Covers</source>
        <translation>Umfasst</translation>
    </message>
    <message>
        <source>Changed since</source>
        <translation>Seither geändert</translation>
    </message>
    <message>
        <source>Certificate</source>
        <translation>Zertifikat</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Urteil</translation>
    </message>
    <message>
        <source>Digital signatures</source>
        <translation>Digitale Signaturen</translation>
    </message>
    <message>
        <source>Revoked by its issuer</source>
        <translation>Vom Aussteller widerrufen</translation>
    </message>
</context>
</TS>
