<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
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
</context>
<context>
    <name>signdesk::DeskFiles</name>
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
        <source>Save signed page</source>
        <translation>Unterschriebene Seite speichern</translation>
    </message>
    <message>
        <source>signed-page</source>
        <translation>unterschriebene-seite</translation>
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
        <source>The signature is neither saved nor printed.</source>
        <translation>Die Unterschrift ist weder gespeichert noch gedruckt.</translation>
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
        <source>Go &amp;back</source>
        <translation>&amp;Zurück</translation>
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
        <source>blank sheet</source>
        <translation>leeres Blatt</translation>
    </message>
    <message>
        <source>Open the page to be signed, or start signing on the blank sheet.</source>
        <translation>Öffnen Sie die Seite zum Unterschreiben, oder beginnen Sie auf dem leeren Blatt.</translation>
    </message>
    <message>
        <source>The page is saved.</source>
        <translation>Die Seite ist gespeichert.</translation>
    </message>
    <message>
        <source>The signature is exported.</source>
        <translation>Die Unterschrift ist exportiert.</translation>
    </message>
    <message>
        <source>The page is printed.</source>
        <translation>Die Seite ist gedruckt.</translation>
    </message>
    <message>
        <source>Nothing is written yet, so there is nothing to confirm.</source>
        <translation>Noch ist nichts geschrieben, also gibt es nichts zu bestätigen.</translation>
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
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>Grows while the signer writes on the pad</source>
        <translation>Wächst, während auf dem Pad geschrieben wird</translation>
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
        <source>The signer may write on the pad.</source>
        <translation>Auf dem Pad kann unterschrieben werden.</translation>
    </message>
    <message>
        <source>Confirmed. Save, export or print it, then cancel or clear for the next one.</source>
        <translation>Bestätigt: jetzt speichern, exportieren oder drucken. Für die nächste leeren oder abbrechen.</translation>
    </message>
    <message>
        <source>Something was written after the confirmation: confirm again, or clear.</source>
        <translation>Nach dem Bestätigen wurde weitergeschrieben: neu bestätigen oder leeren.</translation>
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
        <source>About Sign Desk</source>
        <translation>Über Sign Desk</translation>
    </message>
    <message>
        <source>Sign Desk lets a customer sign a page on a signature pad, and saves or prints it with the signature.</source>
        <translation>Mit Sign Desk unterschreibt ein Kunde eine Seite auf einem Unterschriftenpad; sie wird mit der Unterschrift gespeichert oder gedruckt.</translation>
    </message>
    <message>
        <source>Confirm here, or on the pad, when all is written.</source>
        <translation>Ist alles geschrieben, hier oder am Pad bestätigen.</translation>
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
        <source>The page is saved as it was when it was opened: its file has changed since then.</source>
        <translation>Die Seite ist so gespeichert, wie sie beim Öffnen war: Ihre Datei hat sich seitdem geändert.</translation>
    </message>
    <message>
        <source>The page is printed as it was when it was opened: its file has changed since then.</source>
        <translation>Die Seite ist so gedruckt, wie sie beim Öffnen war: Ihre Datei hat sich seitdem geändert.</translation>
    </message>
</context>
<context>
    <name>signdesk::FingerprintPlacing</name>
    <message>
        <source>Fingerprint</source>
        <translation>Fingerabdruck</translation>
    </message>
    <message>
        <source>The fingerprint has no room in this field.</source>
        <translation>Der Fingerabdruck hat in diesem Feld keinen Platz.</translation>
    </message>
    <message>
        <source>Make the signature&apos;s field larger.</source>
        <translation>Machen Sie das Feld der Unterschrift größer.</translation>
    </message>
    <message>
        <source>There is no picture of the fingerprint.</source>
        <translation>Es gibt kein Bild des Fingerabdrucks.</translation>
    </message>
    <message>
        <source>See that the computer has memory to spare. Nothing was written; the fingerprint is still here.</source>
        <translation>Sorgen Sie dafür, dass der Rechner genug Speicher frei hat. Es wurde nichts geschrieben; der Fingerabdruck ist noch da.</translation>
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
        <source>Start signing, and when the signer has confirmed, write a picture of the window and end.</source>
        <translation>Beginnen, nach dem Bestätigen ein Bild des Fensters schreiben und enden.</translation>
    </message>
    <message>
        <source>The PDF or picture to be signed.</source>
        <translation>Das PDF oder Bild, das unterschrieben wird.</translation>
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
    <message>
        <source>Use the driver although others could have put another one in its place.</source>
        <translation>Den Treiber verwenden, obwohl andere ihn ausgetauscht haben könnten.</translation>
    </message>
    <message>
        <source>there is no screen for a window: see that QT_QPA_PLATFORM and DISPLAY are right, or not set</source>
        <translation>es gibt keinen Bildschirm für ein Fenster: QT_QPA_PLATFORM und DISPLAY müssen stimmen oder dürfen nicht gesetzt sein</translation>
    </message>
</context>
<context>
    <name>signdesk::OutputPanel</name>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
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
        <source>Sa&amp;ve page...</source>
        <translation>S&amp;peichern...</translation>
    </message>
    <message>
        <source>P&amp;rint...</source>
        <translation>Druc&amp;ken...</translation>
    </message>
    <message>
        <source>E&amp;xport signature...</source>
        <translation>Unterschrift e&amp;xportieren...</translation>
    </message>
    <message>
        <source>Resol&amp;ution</source>
        <translation>Auflö&amp;sung</translation>
    </message>
</context>
<context>
    <name>signdesk::PadPanel</name>
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
        <source>&amp;Confirm</source>
        <translation>Bestäti&amp;gen</translation>
    </message>
    <message>
        <source>S&amp;tart signing</source>
        <translation>Un&amp;terschrift beginnen</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>Abbre&amp;chen</translation>
    </message>
    <message>
        <source>The pad does not answer</source>
        <translation>Das Pad antwortet nicht</translation>
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
    <name>signdesk::PageSheet</name>
    <message>
        <source>Page to sign</source>
        <translation>Seite zum Unterschreiben</translation>
    </message>
    <message>
        <source>The arrow keys move the signature&apos;s field by a millimetre, with Ctrl by ten; plus and minus change its size.</source>
        <translation>Die Pfeiltasten schieben das Feld der Unterschrift um einen Millimeter, mit Strg um zehn; plus und minus ändern seine Größe.</translation>
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
        <source>%1 cannot be opened: %2</source>
        <translation>%1 lässt sich nicht öffnen: %2</translation>
    </message>
    <message>
        <source>Choose another file; the page shown before is still there.</source>
        <translation>Wählen Sie eine andere Datei; die bisherige Seite ist noch da.</translation>
    </message>
    <message>
        <source>it is a damaged PDF.</source>
        <translation>das PDF ist beschädigt.</translation>
    </message>
    <message>
        <source>it is protected by a password.</source>
        <translation>sie ist durch ein Passwort geschützt.</translation>
    </message>
    <message>
        <source>it has no page.</source>
        <translation>sie hat keine Seite.</translation>
    </message>
    <message>
        <source>there is no such file.</source>
        <translation>es gibt keine solche Datei.</translation>
    </message>
    <message>
        <source>you may not read it.</source>
        <translation>Sie dürfen sie nicht lesen.</translation>
    </message>
    <message>
        <source>it is neither a PDF nor a picture.</source>
        <translation>sie ist weder ein PDF noch ein Bild.</translation>
    </message>
    <message>
        <source>it is no file.</source>
        <translation>das ist keine Datei.</translation>
    </message>
    <message>
        <source>it is too large.</source>
        <translation>sie ist zu groß.</translation>
    </message>
    <message>
        <source>it has more pixels than there is memory for.</source>
        <translation>das Bild hat mehr Pixel, als der Speicher fasst.</translation>
    </message>
    <message>
        <source>it is a JPEG of too many scans.</source>
        <translation>das JPEG besteht aus zu vielen Durchgängen.</translation>
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
        <source>For what is written from now on</source>
        <translation>Für alles, was ab jetzt geschrieben wird</translation>
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
        <source>Wi&amp;dth</source>
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
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>von %1</translation>
    </message>
    <message>
        <source>The page that is to bear the signature</source>
        <translation>Die Seite, auf die die Unterschrift kommt</translation>
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
    <name>signdesk::SignatureOutput</name>
    <message>
        <source>%1: a signature is not written in this format.</source>
        <translation>%1: In diesem Format wird keine Unterschrift geschrieben.</translation>
    </message>
    <message>
        <source>Let the name end with .png, .svg, .pdf, .jpg or .bmp.</source>
        <translation>Lassen Sie den Namen auf .png, .svg, .pdf, .jpg oder .bmp enden.</translation>
    </message>
    <message>
        <source>There is no whole picture of the signature.</source>
        <translation>Es gibt kein vollständiges Bild der Unterschrift.</translation>
    </message>
    <message>
        <source>See that something is written in the field, and that the computer has memory to spare. Nothing was written; the signature is still here.</source>
        <translation>Sorgen Sie dafür, dass im Feld etwas geschrieben steht und der Rechner genug Speicher frei hat. Es wurde nichts gespeichert; die Unterschrift ist noch da.</translation>
    </message>
</context>
<context>
    <name>signdesk::SignedDocument</name>
    <message>
        <source>%1: a signed page is not written in this format.</source>
        <translation>%1: In diesem Format wird keine unterschriebene Seite geschrieben.</translation>
    </message>
    <message>
        <source>Let the name end with .pdf or .png.</source>
        <translation>Lassen Sie den Namen auf .pdf oder .png enden.</translation>
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
        <source>The printer does not take the page.</source>
        <translation>Der Drucker nimmt die Seite nicht an.</translation>
    </message>
    <message>
        <source>See that it is switched on and has paper, or print into a file. The signature is still here.</source>
        <translation>Ist er eingeschaltet, und hat er Papier? Oder drucken Sie in eine Datei. Die Unterschrift ist noch da.</translation>
    </message>
    <message>
        <source>The signature cannot be drawn.</source>
        <translation>Die Unterschrift lässt sich nicht zeichnen.</translation>
    </message>
    <message>
        <source>See that the computer has memory to spare. The signature is still here.</source>
        <translation>Sorgen Sie dafür, dass der Rechner genug Speicher frei hat. Die Unterschrift ist noch da.</translation>
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
</context>
<context>
    <name>signdesk::Trouble</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>
