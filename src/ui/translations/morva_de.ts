<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ColorButton</name>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Teal</source>
        <translation>Petrol</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Indigo</source>
        <translation>Indigo</translation>
    </message>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rosa</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Olive</source>
        <translation>Oliv</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>White</source>
        <translation>Weiß</translation>
    </message>
    <message>
        <source>Very light gray</source>
        <translation>Sehr helles Grau</translation>
    </message>
    <message>
        <source>Light gray</source>
        <translation>Hellgrau</translation>
    </message>
    <message>
        <source>Middle gray</source>
        <translation>Mittelgrau</translation>
    </message>
    <message>
        <source>Dark gray</source>
        <translation>Dunkelgrau</translation>
    </message>
    <message>
        <source>Nearly black</source>
        <translation>Fast schwarz</translation>
    </message>
    <message>
        <source>Light blue</source>
        <translation>Hellblau</translation>
    </message>
    <message>
        <source>Light green</source>
        <translation>Hellgrün</translation>
    </message>
    <message>
        <source>Sand</source>
        <translation>Sand</translation>
    </message>
</context>
<context>
    <name>Keys</name>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
</context>
<context>
    <name>PhotoReport</name>
    <message>
        <source>× %1</source>
        <translation>× %1</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Landmarks</source>
        <translation>Gesichtspunkte</translation>
    </message>
    <message>
        <source>%1 sure</source>
        <translation>%1 sicher</translation>
    </message>
    <message>
        <source>Chin estimates</source>
        <translation>Kinnschätzungen</translation>
    </message>
    <message>
        <source>%1 apart</source>
        <translation>%1 auseinander</translation>
    </message>
    <message>
        <source>Eye spacing</source>
        <translation>Augenabstand</translation>
    </message>
    <message>
        <source>Head turned</source>
        <translation>Kopf gedreht</translation>
    </message>
    <message>
        <source>Head tipped</source>
        <translation>Kopf geneigt</translation>
    </message>
    <message>
        <source>Hair outline</source>
        <translation>Haarumriss</translation>
    </message>
    <message>
        <source>reliable</source>
        <translation>verlässlich</translation>
    </message>
    <message>
        <source>uncertain</source>
        <translation>unsicher</translation>
    </message>
    <message>
        <source> ± %1</source>
        <translation> ± %1</translation>
    </message>
    <message>
        <source>≥ %1</source>
        <translation>≥ %1</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Face size</source>
        <translation>Gesichtsgröße</translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation>Augenlinie</translation>
    </message>
    <message>
        <source>Chin line</source>
        <translation>Kinnlinie</translation>
    </message>
    <message>
        <source>Headroom</source>
        <translation>Kopfraum</translation>
    </message>
    <message>
        <source>Clearance left</source>
        <translation>Abstand links</translation>
    </message>
    <message>
        <source>Clearance right</source>
        <translation>Abstand rechts</translation>
    </message>
    <message>
        <source>Hair height</source>
        <translation>Haarhöhe</translation>
    </message>
    <message>
        <source>%1 face units</source>
        <translation>%1 Gesichtseinheiten</translation>
    </message>
    <message>
        <source>≤ %1</source>
        <translation>≤ %1</translation>
    </message>
    <message>
        <source>Zoomed out for the prop</source>
        <translation>Weiter gefasst für die Requisite</translation>
    </message>
    <message>
        <source>Turned</source>
        <translation>Gedreht</translation>
    </message>
    <message>
        <source>at most %1°</source>
        <translation>höchstens %1°</translation>
    </message>
    <message>
        <source>Moved right</source>
        <translation>Nach rechts gerückt</translation>
    </message>
    <message>
        <source>Moved left</source>
        <translation>Nach links gerückt</translation>
    </message>
    <message>
        <source>Moved down</source>
        <translation>Nach unten gerückt</translation>
    </message>
    <message>
        <source>Moved up</source>
        <translation>Nach oben gerückt</translation>
    </message>
    <message>
        <source>Crop size</source>
        <translation>Größe des Zuschnitts</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>File size</source>
        <translation>Dateigröße</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Aufgenommen</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Sterne</translation>
    </message>
    <message numerus="yes">
        <source>%n star(s)</source>
        <translation>
            <numerusform>%n Stern</numerusform>
            <numerusform>%n Sterne</numerusform>
        </translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Etikett</translation>
    </message>
    <message>
        <source>Poses</source>
        <translation>Posen</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>Sign</source>
        <translation>Schild</translation>
    </message>
    <message>
        <source>found</source>
        <translation>gefunden</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>Ausgegeben</translation>
    </message>
    <message>
        <source>Automatic: %1</source>
        <translation>Automatisch: %1</translation>
    </message>
    <message>
        <source>As the job: %1</source>
        <translation>Wie der Auftrag: %1</translation>
    </message>
    <message>
        <source>This photo&apos;s own. The rules pick %1.</source>
        <translation>Eigene dieses Fotos. Die Regeln wählen %1.</translation>
    </message>
    <message>
        <source>This photo&apos;s own. The job uses %1.</source>
        <translation>Eigene dieses Fotos. Der Auftrag nutzt %1.</translation>
    </message>
    <message>
        <source>Picked by the rule “%1”</source>
        <translation>Gewählt nach der Regel „%1“</translation>
    </message>
    <message>
        <source>No rule applies to this photo.</source>
        <translation>Keine Regel trifft auf dieses Foto zu.</translation>
    </message>
    <message>
        <source>The crop type of the job.</source>
        <translation>Die Zuschnittart des Auftrags.</translation>
    </message>
    <message>
        <source>This photo has not been measured. Crop Photos does that.</source>
        <translation>Dieses Foto ist noch nicht gemessen. Das tut „Fotos zuschneiden“.</translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped yet</source>
        <translation>
            <numerusform>%n noch nicht zugeschnitten</numerusform>
            <numerusform>%n noch nicht zugeschnitten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation>
            <numerusform>%n fertig</numerusform>
            <numerusform>%n fertig</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in review</source>
        <translation>
            <numerusform>%n zu prüfen</numerusform>
            <numerusform>%n zu prüfen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n approved</source>
        <translation>
            <numerusform>%n freigegeben</numerusform>
            <numerusform>%n freigegeben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n without a face</source>
        <translation>
            <numerusform>%n ohne Gesicht</numerusform>
            <numerusform>%n ohne Gesicht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unreadable</source>
        <translation>
            <numerusform>%n nicht lesbar</numerusform>
            <numerusform>%n nicht lesbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photos selected</source>
        <translation>
            <numerusform>%n Foto ausgewählt</numerusform>
            <numerusform>%n Fotos ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>As the job</source>
        <translation>Wie der Auftrag</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photos</source>
        <translation>
            <numerusform>%1 von %n Foto</numerusform>
            <numerusform>%1 von %n Fotos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PresetForm</name>
    <message>
        <source>by the body</source>
        <translation>nach dem Körper</translation>
    </message>
    <message>
        <source>%1 above the head</source>
        <translation>%1 über dem Kopf</translation>
    </message>
    <message>
        <source>balanced</source>
        <translation>ausgewogen</translation>
    </message>
    <message>
        <source>eyes at %1</source>
        <translation>Augen bei %1</translation>
    </message>
    <message>
        <source>hair</source>
        <translation>Haar</translation>
    </message>
    <message>
        <source>head</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>prop</source>
        <translation>Requisite</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>not used</source>
        <translation>ungenutzt</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>at most %1°</source>
        <translation>höchstens %1°</translation>
    </message>
    <message>
        <source>edges repeated</source>
        <translation>Ränder fortgesetzt</translation>
    </message>
    <message>
        <source>plain backdrop</source>
        <translation>schlichter Hintergrund</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 : %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>%1 is not %2.</source>
        <translation>%1 ist nicht %2.</translation>
    </message>
</context>
<context>
    <name>ReasonWords</name>
    <message>
        <source>The two measurements of the chin lie %1 of the face apart.</source>
        <translation>Die zwei Messungen des Kinns liegen um %1 des Gesichts auseinander.</translation>
    </message>
    <message>
        <source>The eyes are %1 face heights apart; %2 is usual.</source>
        <translation>Die Augen stehen %1 Gesichtshöhen auseinander; üblich sind %2.</translation>
    </message>
    <message>
        <source>The head is turned %1° to the side; the face looks narrower than it is.</source>
        <translation>Der Kopf ist um %1° zur Seite gedreht; das Gesicht wirkt schmaler, als es ist.</translation>
    </message>
    <message>
        <source>The head is tipped %1° up or down; the face looks shorter than it is.</source>
        <translation>Der Kopf ist um %1° gehoben oder gesenkt; das Gesicht wirkt kürzer, als es ist.</translation>
    </message>
    <message>
        <source>The head is tilted %1°, too far to be sure of the crop.</source>
        <translation>Der Kopf ist um %1° geneigt, zu weit für einen sicheren Zuschnitt.</translation>
    </message>
    <message>
        <source>No outline of the hair was found, so its top is not known.</source>
        <translation>Es wurde kein Haarumriss gefunden; wo das Haar oben endet, ist unbekannt.</translation>
    </message>
    <message>
        <source>%1. The top of the hair is a guess.</source>
        <translation>%1. Die Oberkante des Haars ist geschätzt.</translation>
    </message>
    <message>
        <source>The outline of the hair cannot be trusted.</source>
        <translation>Dem Haarumriss ist nicht zu trauen.</translation>
    </message>
    <message>
        <source>The hair seems to end very close above the eyes, which is hard to believe.</source>
        <translation>Das Haar scheint dicht über den Augen zu enden, was kaum sein kann.</translation>
    </message>
    <message>
        <source>The hair passes the left edge of the crop by %1.</source>
        <translation>Das Haar reicht um %1 über den linken Rand des Zuschnitts.</translation>
    </message>
    <message>
        <source>The hair passes the right edge of the crop by %1.</source>
        <translation>Das Haar reicht um %1 über den rechten Rand des Zuschnitts.</translation>
    </message>
    <message>
        <source>%1 are left beside the hair at the left; the preset keeps %2.</source>
        <translation>Links neben dem Haar bleiben %1; die Vorgabe verlangt %2.</translation>
    </message>
    <message>
        <source>%1 are left beside the hair at the right; the preset keeps %2.</source>
        <translation>Rechts neben dem Haar bleiben %1; die Vorgabe verlangt %2.</translation>
    </message>
    <message>
        <source>The head passes the top of the crop by %1.</source>
        <translation>Der Kopf reicht um %1 über den oberen Rand des Zuschnitts.</translation>
    </message>
    <message>
        <source>%1 are left above the head; the preset keeps %2.</source>
        <translation>Über dem Kopf bleiben %1; die Vorgabe verlangt %2.</translation>
    </message>
    <message>
        <source>The eye line is at %1, %2 lower than the preset asks for; tall hair or a bow pushes the face down.</source>
        <translation>Die Augenlinie liegt bei %1, um %2 tiefer als vorgegeben; hohes Haar oder eine Schleife drückt das Gesicht nach unten.</translation>
    </message>
    <message>
        <source>The eye line is at %1, %2 higher than the preset asks for.</source>
        <translation>Die Augenlinie liegt bei %1, um %2 höher als vorgegeben.</translation>
    </message>
    <message>
        <source>The crop reaches past the edge of the photo.</source>
        <translation>Der Zuschnitt reicht über den Rand des Fotos hinaus.</translation>
    </message>
    <message>
        <source>The photo ends inside the frame (%1) and cuts the child off there, so nothing is added.</source>
        <translation>Das Foto endet innerhalb des Rahmens (%1) und schneidet das Kind dort an, daher wird nichts ergänzt.</translation>
    </message>
    <message>
        <source>The photo ends inside the frame: %1.</source>
        <translation>Das Foto endet innerhalb des Rahmens: %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n other face(s) could be meant as well; the crop follows the largest.</source>
        <translation>
            <numerusform>%n anderes Gesicht könnte auch gemeint sein; der Zuschnitt folgt dem größten.</numerusform>
            <numerusform>%n andere Gesichter könnten auch gemeint sein; der Zuschnitt folgt dem größten.</numerusform>
        </translation>
    </message>
    <message>
        <source>The crop is %1 px high and would be enlarged %2 times to %3 px; %4 times is the limit.</source>
        <translation>Der Zuschnitt ist %1 px hoch und würde %2-fach auf %3 px vergrößert; die Grenze ist %4-fach.</translation>
    </message>
    <message>
        <source>Zoomed out %1 so that the prop fits; the face is that much smaller.</source>
        <translation>Um %1 weiter gefasst, damit die Requisite passt; das Gesicht ist um so viel kleiner.</translation>
    </message>
    <message>
        <source>There is no face to crop by. Such a photo is not exported.</source>
        <translation>Es gibt kein Gesicht, nach dem zugeschnitten werden könnte. Solch ein Foto wird nicht ausgegeben.</translation>
    </message>
    <message>
        <source>Eyes and chin are only %1 sure; less than %2 needs a look.</source>
        <translation>Augen und Kinn sind nur zu %1 sicher; unter %2 braucht es einen Blick.</translation>
    </message>
    <message>
        <source>%1 px missing above</source>
        <translation>oben fehlen %1 px</translation>
    </message>
    <message>
        <source>%1 px missing below</source>
        <translation>unten fehlen %1 px</translation>
    </message>
    <message>
        <source>%1 px missing at the left</source>
        <translation>links fehlen %1 px</translation>
    </message>
    <message>
        <source>%1 px missing at the right</source>
        <translation>rechts fehlen %1 px</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>The head reaches %1 face heights above the eyes; up to %2 is usual.</source>
        <translation>Der Kopf reicht %1 Gesichtshöhen über die Augen; üblich sind bis zu %2.</translation>
    </message>
    <message>
        <source>%1 are left above the head; the preset asks for %2 ± %3.</source>
        <translation>Über dem Kopf bleiben %1; die Vorgabe verlangt %2 ± %3.</translation>
    </message>
    <message>
        <source>Scored %1; the preset asks for %2.</source>
        <translation>Bewertet mit %1; die Vorgabe verlangt %2.</translation>
    </message>
    <message>
        <source>Knees or feet could not be measured, so the face sets the size.</source>
        <translation>Knie oder Füße waren nicht zu messen, daher bestimmt das Gesicht die Größe.</translation>
    </message>
    <message>
        <source>The ankles were not seen; the crop was measured by the knees or the outline.</source>
        <translation>Die Knöchel waren nicht zu sehen; gemessen wurde nach den Knien oder dem Umriss.</translation>
    </message>
    <message>
        <source>What the child holds needs more than the largest zoom of %1.</source>
        <translation>Was das Kind hält, braucht mehr als den größten Zoom von %1.</translation>
    </message>
</context>
<context>
    <name>actions</name>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren …</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Ausgeben …</translation>
    </message>
    <message>
        <source>Save Re&amp;view List…</source>
        <translation>&amp;Prüfliste sichern …</translation>
    </message>
    <message>
        <source>Open Folder of P&amp;hotos</source>
        <translation>Ordner der &amp;Fotos öffnen</translation>
    </message>
    <message>
        <source>&amp;Open Result Folder</source>
        <translation>Er&amp;gebnisordner öffnen</translation>
    </message>
    <message>
        <source>Re&amp;name Job</source>
        <translation>Auftrag &amp;umbenennen</translation>
    </message>
    <message>
        <source>Re&amp;move Job</source>
        <translation>Auftrag &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <source>&amp;Crop Photos</source>
        <translation>Fotos &amp;zuschneiden</translation>
    </message>
    <message>
        <source>Re-anal&amp;yze</source>
        <translation>&amp;Neu auswerten</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>A&amp;bbrechen</translation>
    </message>
    <message>
        <source>Re&amp;view</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>Approve All &amp;Ready</source>
        <translation>Alle &amp;fertigen freigeben</translation>
    </message>
    <message>
        <source>&amp;Take Back Approval</source>
        <translation>Freigabe &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>&amp;Backdrops…</source>
        <translation>&amp;Hintergründe …</translation>
    </message>
    <message>
        <source>Teach a &amp;Pose…</source>
        <translation>P&amp;ose lehren …</translation>
    </message>
    <message>
        <source>Edit R&amp;ules…</source>
        <translation>Re&amp;geln bearbeiten …</translation>
    </message>
    <message>
        <source>&amp;Before / After</source>
        <translation>&amp;Vorher / Nachher</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>Ei&amp;npassen</translation>
    </message>
    <message>
        <source>&amp;Sidebar</source>
        <translation>&amp;Seitenleiste</translation>
    </message>
    <message>
        <source>&amp;Right Panel</source>
        <translation>&amp;Rechte Leiste</translation>
    </message>
    <message>
        <source>&amp;Preset</source>
        <translation>&amp;Vorgabe</translation>
    </message>
    <message>
        <source>P&amp;hoto</source>
        <translation>F&amp;oto</translation>
    </message>
    <message>
        <source>&amp;Larger Thumbnails</source>
        <translation>&amp;Größere Vorschauen</translation>
    </message>
    <message>
        <source>S&amp;maller Thumbnails</source>
        <translation>&amp;Kleinere Vorschauen</translation>
    </message>
    <message>
        <source>High &amp;Contrast</source>
        <translation>Hoher &amp;Kontrast</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;About Morva</source>
        <translation>Ü&amp;ber Morva</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Photos</source>
        <translation>&amp;Fotos</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Handbuch</translation>
    </message>
</context>
<context>
    <name>engine</name>
    <message>
        <source>Not cropped yet</source>
        <translation>Noch nicht zugeschnitten</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Approved</source>
        <translation>Freigegeben</translation>
    </message>
    <message>
        <source>No face</source>
        <translation>Kein Gesicht</translation>
    </message>
    <message>
        <source>Couldn&apos;t analyze</source>
        <translation>Nicht auswertbar</translation>
    </message>
    <message>
        <source>All photos</source>
        <translation>Alle Fotos</translation>
    </message>
    <message>
        <source>No face / errors</source>
        <translation>Kein Gesicht / Fehler</translation>
    </message>
    <message>
        <source>Hand-adjusted</source>
        <translation>Von Hand angepasst</translation>
    </message>
    <message>
        <source>No face found</source>
        <translation>Kein Gesicht gefunden</translation>
    </message>
    <message>
        <source>More than one face</source>
        <translation>Mehr als ein Gesicht</translation>
    </message>
    <message>
        <source>Face not clearly located</source>
        <translation>Gesicht nicht sicher erkannt</translation>
    </message>
    <message>
        <source>Eyes/chin uncertain</source>
        <translation>Augen/Kinn unsicher</translation>
    </message>
    <message>
        <source>Unusual head pose</source>
        <translation>Ungewöhnliche Kopfhaltung</translation>
    </message>
    <message>
        <source>Hair outline uncertain</source>
        <translation>Haarumriss unsicher</translation>
    </message>
    <message>
        <source>Something tall above the head</source>
        <translation>Etwas Hohes über dem Kopf</translation>
    </message>
    <message>
        <source>Hair or accessory would be clipped</source>
        <translation>Haar oder Kopfschmuck würde angeschnitten</translation>
    </message>
    <message>
        <source>Hair clipped at the side</source>
        <translation>Haar seitlich angeschnitten</translation>
    </message>
    <message>
        <source>Needs more canvas</source>
        <translation>Braucht mehr Fläche</translation>
    </message>
    <message>
        <source>Face sits low (tall hair or bow)</source>
        <translation>Gesicht sitzt tief (hohes Haar oder Schleife)</translation>
    </message>
    <message>
        <source>Face sits high</source>
        <translation>Gesicht sitzt hoch</translation>
    </message>
    <message>
        <source>Headroom outside tolerance</source>
        <translation>Kopfraum außerhalb der Toleranz</translation>
    </message>
    <message>
        <source>Low resolution for export size</source>
        <translation>Auflösung zu gering für die Ausgabegröße</translation>
    </message>
    <message>
        <source>Below confidence threshold</source>
        <translation>Unter der Sicherheitsschwelle</translation>
    </message>
    <message>
        <source>Body not found (cropped by the face)</source>
        <translation>Körper nicht gefunden (nach dem Gesicht zugeschnitten)</translation>
    </message>
    <message>
        <source>Not enough of the body found</source>
        <translation>Nicht genug vom Körper gefunden</translation>
    </message>
    <message>
        <source>Prop would be cut off</source>
        <translation>Requisite würde angeschnitten</translation>
    </message>
    <message>
        <source>Zoomed out to keep the prop</source>
        <translation>Für die Requisite weiter gefasst</translation>
    </message>
    <message>
        <source>No face was found in this photo.</source>
        <translation>In diesem Foto wurde kein Gesicht gefunden.</translation>
    </message>
    <message>
        <source>Landmark confidence %1%.</source>
        <translation>Sicherheit der Gesichtspunkte %1 %.</translation>
    </message>
    <message>
        <source>Chin estimates disagree by %1% of the face.</source>
        <translation>Die Kinnmessungen weichen um %1 % des Gesichts voneinander ab.</translation>
    </message>
    <message>
        <source>Eye spacing is unusual for the face height.</source>
        <translation>Der Augenabstand ist für die Gesichtshöhe ungewöhnlich.</translation>
    </message>
    <message>
        <source>Head turned %1°.</source>
        <translation>Kopf um %1° gedreht.</translation>
    </message>
    <message>
        <source>Head tilted %1°.</source>
        <translation>Kopf um %1° geneigt.</translation>
    </message>
    <message>
        <source>Head tipped %1°.</source>
        <translation>Kopf um %1° gesenkt oder gehoben.</translation>
    </message>
    <message>
        <source>The crop runs past the photo (%1); only backdrop is missing there, so it is filled at export.</source>
        <translation>Der Zuschnitt reicht über das Foto hinaus (%1); dort fehlt nur Hintergrund, er wird bei der Ausgabe ergänzt.</translation>
    </message>
    <message>
        <source>The crop runs past the photo (%1), and the child or their prop is cut off by the %2 edge, so there is nothing honest to fill it with.</source>
        <translation>Der Zuschnitt reicht über das Foto hinaus (%1), und das Kind oder seine Requisite ist am Rand abgeschnitten (%2); ehrlich lässt sich das nicht ergänzen.</translation>
    </message>
    <message>
        <source>The crop runs past the photo edge: %1.</source>
        <translation>Der Zuschnitt reicht über den Fotorand hinaus: %1.</translation>
    </message>
    <message>
        <source>%1 px above</source>
        <translation>%1 px oben</translation>
    </message>
    <message>
        <source>%1 px below</source>
        <translation>%1 px unten</translation>
    </message>
    <message>
        <source>%1 px left</source>
        <translation>%1 px links</translation>
    </message>
    <message>
        <source>%1 px right</source>
        <translation>%1 px rechts</translation>
    </message>
    <message>
        <source>%1 px above, %2</source>
        <translation>%1 px oben, %2</translation>
    </message>
    <message>
        <source>%1 px below, %2</source>
        <translation>%1 px unten, %2</translation>
    </message>
    <message>
        <source>%1 px left, %2</source>
        <translation>%1 px links, %2</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>What the child is holding is too big to fit at this crop size.</source>
        <translation>Was das Kind hält, ist für diese Größe des Zuschnitts zu groß.</translation>
    </message>
    <message>
        <source>Zoomed out %1% so the whole prop fits; the face is that much smaller than the rest of the batch.</source>
        <translation>Um %1 % weiter gefasst, damit die ganze Requisite passt; das Gesicht ist um so viel kleiner als auf den übrigen Fotos.</translation>
    </message>
    <message>
        <source>Slid %1 px left to stay on the photo.</source>
        <translation>Um %1 px nach links verschoben, um auf dem Foto zu bleiben.</translation>
    </message>
    <message>
        <source>Slid %1 px right to stay on the photo.</source>
        <translation>Um %1 px nach rechts verschoben, um auf dem Foto zu bleiben.</translation>
    </message>
    <message>
        <source>Hair outline unavailable, so the crop was placed by the eye line instead.</source>
        <translation>Kein Haarumriss vorhanden, daher wurde der Zuschnitt nach der Augenlinie gesetzt.</translation>
    </message>
    <message>
        <source>Hair protection is off, so the crop is placed by the eye line.</source>
        <translation>Der Haarschutz ist aus, daher wird der Zuschnitt nach der Augenlinie gesetzt.</translation>
    </message>
    <message>
        <source>Face center (between eyes and chin)</source>
        <translation>Gesichtsmitte (zwischen Augen und Kinn)</translation>
    </message>
    <message>
        <source>Eyes</source>
        <translation>Augen</translation>
    </message>
    <message>
        <source>Head (face and hair outline balanced)</source>
        <translation>Kopf (Gesicht und Haarumriss ausgewogen)</translation>
    </message>
    <message>
        <source>Body center (shoulders and hips)</source>
        <translation>Körpermitte (Schultern und Hüften)</translation>
    </message>
    <message>
        <source>Whole subject, including what they hold</source>
        <translation>Ganze Person samt allem, was sie hält</translation>
    </message>
    <message>
        <source>Headshot (eyes → chin sets the size)</source>
        <translation>Kopfporträt (Augen → Kinn bestimmt die Größe)</translation>
    </message>
    <message>
        <source>Three-quarter (head top → knees)</source>
        <translation>Dreiviertel (Scheitel → Knie)</translation>
    </message>
    <message>
        <source>Full length (head top → feet)</source>
        <translation>Ganzfigur (Scheitel → Füße)</translation>
    </message>
    <message>
        <source>Down to the photo&apos;s bottom edge</source>
        <translation>Bis zum unteren Rand des Fotos</translation>
    </message>
    <message>
        <source>Top margin above head</source>
        <translation>Abstand über dem Kopf</translation>
    </message>
    <message>
        <source>Balanced (trade headroom for eye line)</source>
        <translation>Ausgewogen (Kopfraum gegen Augenlinie)</translation>
    </message>
    <message>
        <source>Eye line position</source>
        <translation>Lage der Augenlinie</translation>
    </message>
    <message>
        <source>Never rotate</source>
        <translation>Nie drehen</translation>
    </message>
    <message>
        <source>The crop stays square to the photo. A tilted head stays tilted.</source>
        <translation>Der Zuschnitt bleibt gerade zum Foto. Ein geneigter Kopf bleibt geneigt.</translation>
    </message>
    <message>
        <source>Correct camera roll only</source>
        <translation>Nur schiefe Kamera ausgleichen</translation>
    </message>
    <message>
        <source>Rotates every photo by the same fixed angle, for a camera that sat crooked.</source>
        <translation>Dreht jedes Foto um denselben festen Winkel, wenn die Kamera schief stand.</translation>
    </message>
    <message>
        <source>Straighten the eye line</source>
        <translation>Augenlinie geraderichten</translation>
    </message>
    <message>
        <source>Turns each crop toward level eyes, by at most the limit below. A bigger tilt is a pose, and the rest of it stays.</source>
        <translation>Dreht jeden Zuschnitt, bis die Augen waagerecht liegen, höchstens um die Grenze unten. Eine stärkere Neigung ist eine Pose, und ihr Rest bleibt.</translation>
    </message>
    <message>
        <source>Keep the photo (gray outside the frame)</source>
        <translation>Foto behalten (außerhalb des Rahmens grau)</translation>
    </message>
    <message>
        <source>Repeat the edges (seamless paper)</source>
        <translation>Ränder wiederholen (nahtloser Hintergrund)</translation>
    </message>
    <message>
        <source>Replace with a studio backdrop</source>
        <translation>Durch einen Studiohintergrund ersetzen</translation>
    </message>
    <message>
        <source>8 × 10 in @ 300 ppi (2400 × 3000)</source>
        <translation>8 × 10 Zoll bei 300 ppi (2400 × 3000)</translation>
    </message>
    <message>
        <source>4 × 5 in @ 300 ppi (1200 × 1500)</source>
        <translation>4 × 5 Zoll bei 300 ppi (1200 × 1500)</translation>
    </message>
    <message>
        <source>2 × 2.5 in @ 300 ppi (600 × 750)</source>
        <translation>2 × 2,5 Zoll bei 300 ppi (600 × 750)</translation>
    </message>
    <message>
        <source>%1-star rating</source>
        <translation>%1 Sterne</translation>
    </message>
    <message>
        <source>Same pose as a %1-star frame</source>
        <translation>Gleiche Pose wie ein Foto mit %1 Sternen</translation>
    </message>
    <message>
        <source>Shot close (face over %1% of the frame)</source>
        <translation>Nah aufgenommen (Gesicht über %1 % des Bildes)</translation>
    </message>
    <message>
        <source>%1 label</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>Landscape frame</source>
        <translation>Querformat</translation>
    </message>
    <message>
        <source>Sign or letter board</source>
        <translation>Schild oder Buchstabentafel</translation>
    </message>
    <message>
        <source>Feet in the frame</source>
        <translation>Füße im Bild</translation>
    </message>
    <message>
        <source>Everything else</source>
        <translation>Alles Übrige</translation>
    </message>
    <message>
        <source>Nudge left</source>
        <translation>Nach links rücken</translation>
    </message>
    <message>
        <source>Nudge right</source>
        <translation>Nach rechts rücken</translation>
    </message>
    <message>
        <source>Nudge up</source>
        <translation>Nach oben rücken</translation>
    </message>
    <message>
        <source>Nudge down</source>
        <translation>Nach unten rücken</translation>
    </message>
    <message>
        <source>Previous photo</source>
        <translation>Voriges Foto</translation>
    </message>
    <message>
        <source>Next photo</source>
        <translation>Nächstes Foto</translation>
    </message>
    <message>
        <source>Approve and go to the next photo</source>
        <translation>Freigeben und zum nächsten Foto</translation>
    </message>
    <message>
        <source>Approve, or take it back</source>
        <translation>Freigeben oder zurücknehmen</translation>
    </message>
    <message>
        <source>Back to the grid</source>
        <translation>Zurück zur Übersicht</translation>
    </message>
    <message>
        <source>Tighter crop</source>
        <translation>Enger zuschneiden</translation>
    </message>
    <message>
        <source>Looser crop</source>
        <translation>Weiter zuschneiden</translation>
    </message>
    <message>
        <source>Turn left</source>
        <translation>Nach links drehen</translation>
    </message>
    <message>
        <source>Turn right</source>
        <translation>Nach rechts drehen</translation>
    </message>
    <message>
        <source>Reset the hand adjustment</source>
        <translation>Handanpassung zurücksetzen</translation>
    </message>
    <message>
        <source>Show or hide the guides</source>
        <translation>Hilfslinien ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Crop type of the job</source>
        <translation>Zuschnittart des Auftrags</translation>
    </message>
    <message>
        <source>Crop type by its place in the list</source>
        <translation>Zuschnittart nach ihrem Platz in der Liste</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Einzelbild</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Approve</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Take Back Approval</source>
        <translation>Freigabe zurücknehmen</translation>
    </message>
    <message>
        <source>Approve All Ready</source>
        <translation>Alle fertigen freigeben</translation>
    </message>
    <message>
        <source>Nudge Crop</source>
        <translation>Zuschnitt rücken</translation>
    </message>
    <message>
        <source>Zoom Crop</source>
        <translation>Zuschnitt zoomen</translation>
    </message>
    <message>
        <source>Turn Crop</source>
        <translation>Zuschnitt drehen</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Zuschnitt zurücksetzen</translation>
    </message>
    <message>
        <source>Choose Crop Type</source>
        <translation>Zuschnittart wählen</translation>
    </message>
    <message>
        <source>Choose Crop Type of Job</source>
        <translation>Zuschnittart des Auftrags wählen</translation>
    </message>
    <message>
        <source>Change Preset</source>
        <translation>Vorgabe ändern</translation>
    </message>
    <message>
        <source>New Preset</source>
        <translation>Neue Vorgabe</translation>
    </message>
    <message>
        <source>Duplicate Preset</source>
        <translation>Vorgabe duplizieren</translation>
    </message>
    <message>
        <source>Reset Preset</source>
        <translation>Vorgabe zurücksetzen</translation>
    </message>
    <message>
        <source>Delete Preset</source>
        <translation>Vorgabe löschen</translation>
    </message>
    <message>
        <source>Change Rules</source>
        <translation>Regeln ändern</translation>
    </message>
    <message>
        <source>Remove Job</source>
        <translation>Auftrag entfernen</translation>
    </message>
    <message>
        <source>Importing %1</source>
        <translation>%1 wird importiert</translation>
    </message>
    <message>
        <source>Cropping %1</source>
        <translation>%1 wird zugeschnitten</translation>
    </message>
    <message>
        <source>Exporting to %1</source>
        <translation>Ausgabe nach %1</translation>
    </message>
    <message>
        <source>Learning %1</source>
        <translation>%1 wird gelernt</translation>
    </message>
    <message>
        <source>Looking for poses</source>
        <translation>Posen werden gesucht</translation>
    </message>
    <message>
        <source>Imported %1 photos.</source>
        <translation>%1 Fotos importiert.</translation>
    </message>
    <message>
        <source>Removed %1.</source>
        <translation>%1 entfernt.</translation>
    </message>
    <message>
        <source>Approved 1 photo.</source>
        <translation>1 Foto freigegeben.</translation>
    </message>
    <message>
        <source>Approved %1 photos.</source>
        <translation>%1 Fotos freigegeben.</translation>
    </message>
    <message>
        <source>Cropped; 1 photo needs a look.</source>
        <translation>Zugeschnitten; 1 Foto braucht einen Blick.</translation>
    </message>
    <message>
        <source>Cropped; %1 photos need a look.</source>
        <translation>Zugeschnitten; %1 Fotos brauchen einen Blick.</translation>
    </message>
    <message>
        <source>Cancelled; 1 photo needs a look.</source>
        <translation>Abgebrochen; 1 Foto braucht einen Blick.</translation>
    </message>
    <message>
        <source>Cancelled; %1 photos need a look.</source>
        <translation>Abgebrochen; %1 Fotos brauchen einen Blick.</translation>
    </message>
    <message>
        <source>Exported 1 photo to %1.</source>
        <translation>1 Foto nach %1 ausgegeben.</translation>
    </message>
    <message>
        <source>Exported %1 photos to %2.</source>
        <translation>%1 Fotos nach %2 ausgegeben.</translation>
    </message>
    <message>
        <source>Already cropped</source>
        <translation>Schon zugeschnitten</translation>
    </message>
    <message>
        <source>Every photo in %1 has been analyzed. Change the preset to re-crop instantly, or use Photos ▸ Re-analyze to run face detection again.</source>
        <translation>Alle Fotos in %1 sind ausgewertet. Ändern Sie die Vorgabe, um sofort neu zuzuschneiden, oder wählen Sie Fotos ▸ Neu auswerten, um die Gesichter erneut zu suchen.</translation>
    </message>
    <message>
        <source>Could not start the analysis</source>
        <translation>Die Auswertung konnte nicht beginnen</translation>
    </message>
    <message>
        <source>Nothing to import</source>
        <translation>Nichts zu importieren</translation>
    </message>
    <message>
        <source>%1 has no JPEG, PNG, TIFF or HEIC files.</source>
        <translation>%1 enthält keine JPEG-, PNG-, TIFF- oder HEIC-Dateien.</translation>
    </message>
    <message>
        <source>Could not read the folder</source>
        <translation>Der Ordner ist nicht lesbar</translation>
    </message>
    <message>
        <source>Crop first</source>
        <translation>Zuerst zuschneiden</translation>
    </message>
    <message>
        <source>Click Crop Photos to analyze the folder before exporting.</source>
        <translation>Klicken Sie auf „Fotos zuschneiden“, um den Ordner vor der Ausgabe auszuwerten.</translation>
    </message>
    <message>
        <source>Choose a folder outside the job</source>
        <translation>Wählen Sie einen Ordner außerhalb des Auftrags</translation>
    </message>
    <message>
        <source>Morva never writes inside the source folder, or over it, so originals are never overwritten. Pick a separate folder, for example next to the job.</source>
        <translation>Morva schreibt nie in den Quellordner oder über ihn, damit Originale nie überschrieben werden. Wählen Sie einen eigenen Ordner, zum Beispiel neben dem Auftrag.</translation>
    </message>
    <message>
        <source>Export size doesn&apos;t match the ratio</source>
        <translation>Ausgabegröße und Seitenverhältnis passen nicht zusammen</translation>
    </message>
    <message>
        <source>%1 is not %2. Morva will not stretch faces. Fix the size under Preset ▸ Export (the Fix height button).</source>
        <translation>%1 ist nicht %2. Morva verzerrt keine Gesichter. Berichtigen Sie die Größe unter Vorgabe ▸ Ausgabe („Höhe anpassen“).</translation>
    </message>
    <message>
        <source>%1: the pixel size does not match its ratio. Morva will not stretch faces — fix it under Preset ▸ Export (Fix height).</source>
        <translation>%1: Die Pixelgröße passt nicht zum Seitenverhältnis. Morva verzerrt keine Gesichter – berichtigen Sie sie unter Vorgabe ▸ Ausgabe (Höhe anpassen).</translation>
    </message>
    <message>
        <source>Nothing new to export</source>
        <translation>Nichts Neues auszugeben</translation>
    </message>
    <message>
        <source>No photos are ready or approved yet.</source>
        <translation>Noch sind keine Fotos fertig oder freigegeben.</translation>
    </message>
    <message>
        <source>All %1 ready photos are already in that folder with the same crop. Turn on “Replace existing files” to write them again.</source>
        <translation>Alle %1 fertigen Fotos liegen schon mit demselben Zuschnitt in diesem Ordner. Schalten Sie „Vorhandene Dateien ersetzen“ ein, um sie neu zu schreiben.</translation>
    </message>
    <message>
        <source>Could not create the export folder</source>
        <translation>Der Ausgabeordner konnte nicht angelegt werden</translation>
    </message>
    <message>
        <source>Some photos were not exported</source>
        <translation>Einige Fotos wurden nicht ausgegeben</translation>
    </message>
    <message>
        <source>%1 of %2 photos could not be written. The export report says why.</source>
        <translation>%1 von %2 Fotos konnten nicht geschrieben werden. Der Ausgabebericht sagt, warum.</translation>
    </message>
    <message>
        <source>Couldn&apos;t save the export report</source>
        <translation>Der Ausgabebericht konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Couldn&apos;t save the review list</source>
        <translation>Die Prüfliste konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Could not use that reference</source>
        <translation>Diese Referenz ist nicht verwendbar</translation>
    </message>
    <message>
        <source>Reference applied with notes</source>
        <translation>Referenz mit Anmerkungen übernommen</translation>
    </message>
    <message>
        <source>No face was found in the reference image.</source>
        <translation>Im Referenzbild wurde kein Gesicht gefunden.</translation>
    </message>
    <message>
        <source>Could not read the reference image.</source>
        <translation>Das Referenzbild ist nicht lesbar.</translation>
    </message>
    <message>
        <source>The reference is %1:1 but the preset ratio is %2. The face measurements were adopted; the ratio was kept.</source>
        <translation>Die Referenz hat %1:1, die Vorgabe %2. Die Gesichtsmaße wurden übernommen, das Seitenverhältnis blieb.</translation>
    </message>
    <message>
        <source>The hair outline could not be measured on the reference, so the top margin was left unchanged.</source>
        <translation>Der Haarumriss der Referenz war nicht messbar, daher blieb der obere Abstand unverändert.</translation>
    </message>
    <message>
        <source>Not a pose pack</source>
        <translation>Kein Posenpaket</translation>
    </message>
    <message>
        <source>%1 does not contain any poses.</source>
        <translation>%1 enthält keine Posen.</translation>
    </message>
    <message>
        <source>Couldn&apos;t save the pose</source>
        <translation>Die Pose konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Some files could not be read</source>
        <translation>Einige Dateien waren nicht lesbar</translation>
    </message>
    <message>
        <source>Your changes could not be saved</source>
        <translation>Ihre Änderungen konnten nicht gespeichert werden</translation>
    </message>
    <message>
        <source>%1 Morva keeps them and goes on trying.</source>
        <translation>%1 Morva behält sie und versucht es weiter.</translation>
    </message>
    <message>
        <source>The jobs can only be looked at</source>
        <translation>Die Aufträge können nur angesehen werden</translation>
    </message>
    <message>
        <source>Another program works with %1: %2.</source>
        <translation>Ein anderes Programm arbeitet mit %1: %2.</translation>
    </message>
    <message>
        <source>One thing at a time</source>
        <translation>Eins nach dem anderen</translation>
    </message>
    <message>
        <source>Wait until “%1” is done, or cancel it.</source>
        <translation>Warten Sie, bis „%1“ fertig ist, oder brechen Sie es ab.</translation>
    </message>
    <message>
        <source>Give the pose a name.</source>
        <translation>Geben Sie der Pose einen Namen.</translation>
    </message>
    <message>
        <source>Tick at least %1 photos of this pose (%2 so far).</source>
        <translation>Haken Sie mindestens %1 Fotos dieser Pose an (bisher %2).</translation>
    </message>
    <message>
        <source>This needs at least %1 other photos in the job to compare against (%2 so far).</source>
        <translation>Zum Vergleich braucht es mindestens %1 andere Fotos im Auftrag (bisher %2).</translation>
    </message>
    <message>
        <source>Those photos could not be measured the same way. Re-run Crop Photos and try again.</source>
        <translation>Diese Fotos ließen sich nicht gleich messen. Schneiden Sie die Fotos neu zu und versuchen Sie es wieder.</translation>
    </message>
    <message>
        <source>Morva could not tell this pose apart from the rest of the job. Try ticking more examples of it.</source>
        <translation>Morva konnte diese Pose nicht vom übrigen Auftrag unterscheiden. Haken Sie mehr Beispiele an.</translation>
    </message>
    <message>
        <source>Learned cleanly from %1 photos. It should find this pose on its own from now on.</source>
        <translation>Sauber gelernt aus %1 Fotos. Diese Pose sollte von nun an von selbst gefunden werden.</translation>
    </message>
    <message>
        <source>Learned from %1 photos. Expect it to miss about %2 in 100 and to need a correction on about %3 in 100 — worth checking the first job.</source>
        <translation>Gelernt aus %1 Fotos. Etwa %2 von 100 werden übersehen und etwa %3 von 100 brauchen eine Korrektur – sehen Sie den ersten Auftrag durch.</translation>
    </message>
    <message>
        <source>Learned from only %1 photos, so it is still unsure. Tick more examples of this pose to sharpen it.</source>
        <translation>Aus nur %1 Fotos gelernt und daher noch unsicher. Haken Sie mehr Beispiele dieser Pose an.</translation>
    </message>
    <message>
        <source>This pose looks a lot like the rest of the job — it would get about %1 in 100 wrong. Consider ticking more examples, or telling the crop types apart by hand.</source>
        <translation>Diese Pose sieht dem übrigen Auftrag sehr ähnlich – etwa %1 von 100 wären falsch. Haken Sie mehr Beispiele an, oder wählen Sie die Zuschnittarten von Hand.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Crops school portraits, a folder at a time.</source>
        <translation>Schneidet Schulporträts ordnerweise zu.</translation>
    </message>
    <message>
        <source>A folder of portraits.</source>
        <translation>Ein Ordner mit Porträts.</translation>
    </message>
    <message>
        <source>Where jobs and presets are kept.</source>
        <translation>Wo Aufträge und Vorgaben liegen.</translation>
    </message>
    <message>
        <source>Where measurements and thumbnails are kept.</source>
        <translation>Wo Messungen und Vorschauen liegen.</translation>
    </message>
</context>
<context>
    <name>morva</name>
    <message>
        <source>Confidence %1</source>
        <translation>Sicherheit %1</translation>
    </message>
    <message>
        <source>Adjusted by hand</source>
        <translation>Von Hand angepasst</translation>
    </message>
</context>
<context>
    <name>morva::AboutSheet</name>
    <message>
        <source>Morva %1</source>
        <translation>Morva %1</translation>
    </message>
    <message>
        <source>Crops school portraits: every face at the same size and place.</source>
        <translation>Schneidet Schulporträts zu: jedes Gesicht gleich groß und am gleichen Platz.</translation>
    </message>
    <message>
        <source>Morva is free software: you may pass it on and change it under the terms of the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>Morva ist freie Software: Sie dürfen es nach den Bedingungen der GNU General Public License, Version 3 oder später, weitergeben und verändern. Es kommt ohne jede Gewähr.</translation>
    </message>
    <message>
        <source>Models and libraries</source>
        <translation>Modelle und Bibliotheken</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Licenses</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>morva::Actions</name>
    <message>
        <source>Crop &amp;Type</source>
        <translation>Zuschnitt&amp;art</translation>
    </message>
    <message>
        <source>Recent &amp;Folders</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>S&amp;how</source>
        <translation>An&amp;zeigen</translation>
    </message>
    <message>
        <source>The Job&apos;s</source>
        <translation>Wie der Auftrag</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
</context>
<context>
    <name>morva::AlertSheet</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>morva::BackdropSheet</name>
    <message>
        <source>Yes, feet show</source>
        <translation>Ja, Füße sind zu sehen</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>No backdrop images found in the Backdrops folder next to the app. Use Choose to pick one from anywhere.</source>
        <translation>Im Ordner „Backdrops“ neben dem Programm liegen keine Hintergrundbilder. Mit „Wählen“ nehmen Sie eines von anderswo.</translation>
    </message>
    <message>
        <source>Backdrop zoom</source>
        <translation>Zoom des Hintergrunds</translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation>Vignette</translation>
    </message>
    <message>
        <source>Floor reflection under the feet</source>
        <translation>Spiegelung am Boden unter den Füßen</translation>
    </message>
    <message>
        <source>Backdrop set-up</source>
        <translation>Hintergründe einrichten</translation>
    </message>
    <message>
        <source>Backdrops are remembered per crop type and reused on the next job.</source>
        <translation>Hintergründe werden je Zuschnittart gemerkt und beim nächsten Auftrag wieder verwendet.</translation>
    </message>
    <message>
        <source>The child is cut out with a soft matte (refined around the hair) and placed on the backdrop, so crops wider than the photo come out clean and no longer go to Review for canvas.</source>
        <translation>Das Kind wird mit einer weichen Maske (am Haar verfeinert) freigestellt und auf den Hintergrund gesetzt; so gelingen auch Zuschnitte, die breiter sind als das Foto, und müssen nicht mehr wegen fehlender Fläche geprüft werden.</translation>
    </message>
    <message>
        <source>Use These Backdrops</source>
        <translation>Diese Hintergründe verwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Is this shoot showing feet?</source>
        <translation>Sind in diesen Aufnahmen Füße zu sehen?</translation>
    </message>
    <message>
        <source>Crop types of this job</source>
        <translation>Zuschnittarten dieses Auftrags</translation>
    </message>
    <message>
        <source>Choose a backdrop image from anywhere</source>
        <translation>Ein Hintergrundbild von anderswo wählen</translation>
    </message>
    <message>
        <source>Backdrop for %1</source>
        <translation>Hintergrund für %1</translation>
    </message>
</context>
<context>
    <name>morva::BackdropTypeList</name>
    <message>
        <source>Crop types of this job</source>
        <translation>Zuschnittarten dieses Auftrags</translation>
    </message>
    <message>
        <source>Backdrop stays as it is</source>
        <translation>Hintergrund bleibt, wie er ist</translation>
    </message>
    <message>
        <source>Off: no feet in this shoot</source>
        <translation>Aus: keine Füße in diesen Aufnahmen</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>crop type and backdrop</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>morva::BackdropView</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>Previous photo</source>
        <translation>Voriges Foto</translation>
    </message>
    <message>
        <source>Next photo</source>
        <translation>Nächstes Foto</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>No photo of this job has this crop type yet.</source>
        <translation>Noch kein Foto dieses Auftrags hat diese Zuschnittart.</translation>
    </message>
    <message>
        <source>Making the preview…</source>
        <translation>Vorschau entsteht …</translation>
    </message>
    <message>
        <source>This photo cannot be drawn.</source>
        <translation>Dieses Foto lässt sich nicht zeichnen.</translation>
    </message>
</context>
<context>
    <name>morva::ColorButton</name>
    <message>
        <source>Color as a hexadecimal number</source>
        <translation>Farbe als Hexadezimalzahl</translation>
    </message>
</context>
<context>
    <name>morva::ConditionEditor</name>
    <message>
        <source>Star rating, at least</source>
        <translation>Sterne, mindestens</translation>
    </message>
    <message>
        <source>Same pose as a frame with stars</source>
        <translation>Gleiche Pose wie ein Foto mit Sternen</translation>
    </message>
    <message>
        <source>Shot close, face at least</source>
        <translation>Nah aufgenommen, Gesicht mindestens</translation>
    </message>
    <message>
        <source>Color label</source>
        <translation>Farbetikett</translation>
    </message>
    <message>
        <source>Learned pose</source>
        <translation>Gelernte Pose</translation>
    </message>
    <message>
        <source>Condition</source>
        <translation>Bedingung</translation>
    </message>
    <message>
        <source>Stars</source>
        <translation>Sterne</translation>
    </message>
    <message>
        <source> %</source>
        <comment>after a number</comment>
        <translation> %</translation>
    </message>
    <message>
        <source>Face height over the height of the frame</source>
        <translation>Höhe des Gesichts im Verhältnis zur Höhe des Fotos</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Lila</translation>
    </message>
</context>
<context>
    <name>morva::ConfidenceBar</name>
    <message>
        <source>Confidence</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>%1, approves itself at %2</source>
        <translation>%1, gibt sich ab %2 selbst frei</translation>
    </message>
</context>
<context>
    <name>morva::EmptyNote</name>
    <message>
        <source>Crop the photos first; they are sorted as they are measured.</source>
        <translation>Schneiden Sie zuerst zu; beim Messen werden die Fotos geordnet.</translation>
    </message>
    <message>
        <source>No photos in this job</source>
        <translation>Keine Fotos in diesem Auftrag</translation>
    </message>
    <message>
        <source>Put photos into its folder and open the folder again.</source>
        <translation>Legen Sie Fotos in seinen Ordner und öffnen Sie ihn erneut.</translation>
    </message>
    <message>
        <source>No photos in Ready</source>
        <translation>Keine fertigen Fotos</translation>
    </message>
    <message>
        <source>Each is approved already or needs a look first.</source>
        <translation>Jedes ist schon freigegeben oder braucht erst einen Blick.</translation>
    </message>
    <message>
        <source>No photos in Review</source>
        <translation>Keine Fotos zu prüfen</translation>
    </message>
    <message>
        <source>Every doubt is settled. Export when you like.</source>
        <translation>Alle Zweifel sind geklärt. Geben Sie aus, wann Sie mögen.</translation>
    </message>
    <message>
        <source>No photos in Approved</source>
        <translation>Keine freigegebenen Fotos</translation>
    </message>
    <message>
        <source>Press Space on a photo to approve its crop.</source>
        <translation>Die Leertaste gibt den Zuschnitt eines Fotos frei.</translation>
    </message>
    <message>
        <source>No photos without a face</source>
        <translation>Keine Fotos ohne Gesicht</translation>
    </message>
    <message>
        <source>A face was found in every photo.</source>
        <translation>In jedem Foto wurde ein Gesicht gefunden.</translation>
    </message>
    <message>
        <source>No hand-adjusted photos</source>
        <translation>Keine von Hand angepassten Fotos</translation>
    </message>
    <message>
        <source>Crops that you move, zoom or turn are kept here.</source>
        <translation>Hier stehen Zuschnitte, die Sie rücken, zoomen oder drehen.</translation>
    </message>
</context>
<context>
    <name>morva::ExampleList</name>
    <message>
        <source>Photos of the job</source>
        <translation>Fotos des Auftrags</translation>
    </message>
</context>
<context>
    <name>morva::ExampleModel</name>
    <message>
        <source>%1, ticked</source>
        <translation>%1, angehakt</translation>
    </message>
</context>
<context>
    <name>morva::ExportSheet</name>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>none</source>
        <comment>no star rating</comment>
        <translation>keine</translation>
    </message>
    <message>
        <source>The pixel size does not match the ratio</source>
        <translation>Die Pixelgröße passt nicht zum Seitenverhältnis</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>Approved photos only</source>
        <translation>Nur freigegebene Fotos</translation>
    </message>
    <message>
        <source>Replace existing files</source>
        <translation>Vorhandene Dateien ersetzen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Destination</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Choose the folder that the files go to</source>
        <translation>Den Ordner für die Dateien wählen</translation>
    </message>
    <message>
        <source>unchanged, skipped</source>
        <translation>unverändert, übergangen</translation>
    </message>
    <message>
        <source>in review, left out</source>
        <translation>zu prüfen, ausgelassen</translation>
    </message>
    <message>
        <source>no face / errors</source>
        <translation>kein Gesicht / Fehler</translation>
    </message>
    <message numerus="yes">
        <source>Export %n File(s)</source>
        <translation>
            <numerusform>%n Datei ausgeben</numerusform>
            <numerusform>%n Dateien ausgeben</numerusform>
        </translation>
    </message>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Sterne</translation>
    </message>
    <message>
        <source>Show preset</source>
        <translation>Vorgabe zeigen</translation>
    </message>
    <message>
        <source>About %1 · %2</source>
        <comment>size and time</comment>
        <translation>Etwa %1 · %2</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Etwa %1</translation>
    </message>
    <message numerus="yes">
        <source>file(s) to write</source>
        <translation>
            <numerusform>Datei zu schreiben</numerusform>
            <numerusform>Dateien zu schreiben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Not cropped yet and left out: %n photo(s)</source>
        <translation>
            <numerusform>Noch nicht zugeschnitten und ausgelassen: %n Foto</numerusform>
            <numerusform>Noch nicht zugeschnitten und ausgelassen: %n Fotos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Leaves out %n photo(s) ready but not approved</source>
        <translation>
            <numerusform>Lässt %n fertiges, nicht freigegebenes Foto aus</numerusform>
            <numerusform>Lässt %n fertige, nicht freigegebene Fotos aus</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writes %n unchanged photo(s) again</source>
        <translation>
            <numerusform>Schreibt %n unverändertes Foto neu</numerusform>
            <numerusform>Schreibt %n unveränderte Fotos neu</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::Filmstrip</name>
    <message>
        <source>Filmstrip</source>
        <translation>Filmstreifen</translation>
    </message>
    <message>
        <source>The photos that the grid shows</source>
        <translation>Die Fotos der Übersicht</translation>
    </message>
</context>
<context>
    <name>morva::FilterBar</name>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation>
            <numerusform>%1: %n Foto</numerusform>
            <numerusform>%1: %n Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>Which photos are shown</source>
        <translation>Welche Fotos gezeigt werden</translation>
    </message>
    <message>
        <source>Size of thumbnails</source>
        <translation>Größe der Vorschauen</translation>
    </message>
</context>
<context>
    <name>morva::GuideSheet</name>
    <message>
        <source>Guide</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>morva::Inspector</name>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Margin %1</source>
        <translation>Rand %1</translation>
    </message>
    <message>
        <source>%1°</source>
        <translation>%1°</translation>
    </message>
    <message>
        <source>Head top</source>
        <translation>Scheitel</translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation>Augenlinie</translation>
    </message>
    <message>
        <source>Chin line</source>
        <translation>Kinnlinie</translation>
    </message>
    <message>
        <source>%1 px missing above</source>
        <translation>oben fehlen %1 px</translation>
    </message>
    <message>
        <source>%1 px missing below</source>
        <translation>unten fehlen %1 px</translation>
    </message>
    <message>
        <source>%1 px missing left</source>
        <translation>links fehlen %1 px</translation>
    </message>
    <message>
        <source>%1 px missing right</source>
        <translation>rechts fehlen %1 px</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Not among the %1 in %2</source>
        <translation>Nicht unter den %1 in %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photo(s)</source>
        <translation>
            <numerusform>%1 von %n Foto</numerusform>
            <numerusform>%1 von %n Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 in %3</source>
        <translation>%1 von %2 in %3</translation>
    </message>
    <message>
        <source>No photo selected</source>
        <translation>Kein Foto ausgewählt</translation>
    </message>
    <message>
        <source>Select a photo in the grid or in the row below.</source>
        <translation>Wählen Sie ein Foto in der Übersicht oder in der Reihe unten.</translation>
    </message>
    <message>
        <source>The photo cannot be read</source>
        <translation>Das Foto ist nicht lesbar</translation>
    </message>
    <message>
        <source>%1 was moved, renamed or damaged since it was imported.</source>
        <translation>%1 wurde seit dem Import verschoben, umbenannt oder beschädigt.</translation>
    </message>
    <message>
        <source>Crop Photos measures it and crops it.</source>
        <translation>„Fotos zuschneiden“ misst es und schneidet es zu.</translation>
    </message>
    <message>
        <source>No face was found, so there is nothing to crop by.</source>
        <translation>Es wurde kein Gesicht gefunden, nach dem sich der Zuschnitt richten könnte.</translation>
    </message>
    <message>
        <source>%1 px missing</source>
        <translation>%1 px fehlen</translation>
    </message>
    <message>
        <source>frame %1 by %2</source>
        <translation>Rahmen %1 mal %2</translation>
    </message>
    <message>
        <source>turned %1 degrees</source>
        <translation>um %1 Grad gedreht</translation>
    </message>
    <message>
        <source>eye line at %1</source>
        <translation>Augenlinie bei %1</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
</context>
<context>
    <name>morva::InspectorBar</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Back to the grid</source>
        <translation>Zurück zur Übersicht</translation>
    </message>
    <message>
        <source>Guides</source>
        <translation>Hilfslinien</translation>
    </message>
    <message>
        <source>Show guides and measured points</source>
        <translation>Hilfslinien und gemessene Punkte zeigen</translation>
    </message>
    <message>
        <source>Before / after</source>
        <translation>Vorher / nachher</translation>
    </message>
    <message>
        <source>Show the finished crop</source>
        <translation>Den fertigen Zuschnitt zeigen</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Show the whole photo</source>
        <translation>Das ganze Foto zeigen</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom: whole photo</source>
        <translation>Zoom: ganzes Foto</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Zoom: %1</translation>
    </message>
</context>
<context>
    <name>morva::JobList</name>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n Foto</numerusform>
            <numerusform>%n Fotos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n cropped</source>
        <translation>
            <numerusform>%1 von %n zugeschnitten</numerusform>
            <numerusform>%1 von %n zugeschnitten</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>not cropped</source>
        <translation>nicht zugeschnitten</translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped</source>
        <translation>
            <numerusform>%n nicht zugeschnitten</numerusform>
            <numerusform>%n nicht zugeschnitten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to review</source>
        <translation>
            <numerusform>%n zu prüfen</numerusform>
            <numerusform>%n zu prüfen</numerusform>
        </translation>
    </message>
    <message>
        <source>exported</source>
        <translation>ausgegeben</translation>
    </message>
    <message>
        <source>all approved</source>
        <translation>alle freigegeben</translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation>
            <numerusform>%n fertig</numerusform>
            <numerusform>%n fertig</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>morva::JobSidebar</name>
    <message>
        <source>Each folder you import becomes a job and stays here with its crops.</source>
        <translation>Jeder importierte Ordner wird ein Auftrag und bleibt hier mit seinen Zuschnitten.</translation>
    </message>
    <message>
        <source>Jobs</source>
        <translation>Aufträge</translation>
    </message>
    <message>
        <source>Import a folder of portraits</source>
        <translation>Einen Ordner mit Porträts importieren</translation>
    </message>
    <message>
        <source>New job</source>
        <translation>Neuer Auftrag</translation>
    </message>
    <message>
        <source>Type to find a job, F2 renames it</source>
        <translation>Tippen sucht einen Auftrag, F2 benennt ihn um</translation>
    </message>
</context>
<context>
    <name>morva::KeyButton</name>
    <message>
        <source>Key %1</source>
        <translation>Taste %1</translation>
    </message>
</context>
<context>
    <name>morva::KeySheet</name>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Find a command</source>
        <translation>Befehl suchen</translation>
    </message>
    <message>
        <source>Keys act on photos only while no field has focus and no sheet is open.</source>
        <translation>Die Tasten gelten den Fotos nur, solange kein Feld den Fokus hat und kein Blatt offen ist.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>No command is called so.</source>
        <translation>So heißt kein Befehl.</translation>
    </message>
</context>
<context>
    <name>morva::Keys</name>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Crop by hand</source>
        <translation>Zuschnitt von Hand</translation>
    </message>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Approve and go to the next photo</source>
        <translation>Freigeben und zum nächsten Foto</translation>
    </message>
    <message>
        <source>Approve or take approval back</source>
        <translation>Freigeben oder Freigabe zurücknehmen</translation>
    </message>
    <message>
        <source>Previous or next photo</source>
        <translation>Voriges oder nächstes Foto</translation>
    </message>
    <message>
        <source>Move the crop by %1 (Shift: %2)</source>
        <translation>Zuschnitt um %1 rücken (Umschalt: %2)</translation>
    </message>
    <message>
        <source>Tighter or looser by %1 (Shift: %2)</source>
        <translation>Enger oder weiter um %1 (Umschalt: %2)</translation>
    </message>
    <message>
        <source>Turn by %1 (Shift: %2)</source>
        <translation>Um %1 drehen (Umschalt: %2)</translation>
    </message>
    <message>
        <source>Reset the hand adjustment</source>
        <translation>Handanpassung zurücksetzen</translation>
    </message>
    <message>
        <source>Give the photo the n-th preset</source>
        <translation>Dem Foto die n-te Vorgabe geben</translation>
    </message>
    <message>
        <source>Back to the job’s preset</source>
        <translation>Zurück zur Vorgabe des Auftrags</translation>
    </message>
    <message>
        <source>Open in the inspector</source>
        <translation>Im Detail öffnen</translation>
    </message>
    <message>
        <source>Back to the grid</source>
        <translation>Zurück zur Übersicht</translation>
    </message>
    <message>
        <source>Leave the inspector</source>
        <translation>Detailansicht verlassen</translation>
    </message>
    <message>
        <source>Guides and measured points</source>
        <translation>Hilfslinien und gemessene Punkte</translation>
    </message>
    <message>
        <source>Select photos, in the grid</source>
        <translation>Fotos auswählen, in der Übersicht</translation>
    </message>
</context>
<context>
    <name>morva::MainToolbar</name>
    <message numerus="yes">
        <source>%n photo(s) to review</source>
        <translation>
            <numerusform>%n Foto zu prüfen</numerusform>
            <numerusform>%n Fotos zu prüfen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Inspector</source>
        <translation>Einzelbild</translation>
    </message>
</context>
<context>
    <name>morva::MainWindow</name>
    <message>
        <source>%1 – Morva</source>
        <translation>%1 – Morva</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>morva::PhotoCanvas</name>
    <message>
        <source>Crop of %1</source>
        <translation>Zuschnitt von %1</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
</context>
<context>
    <name>morva::PhotoGrid</name>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Drop to import %1</source>
        <translation>Loslassen, um %1 zu importieren</translation>
    </message>
</context>
<context>
    <name>morva::PhotoPage</name>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>Reasons</source>
        <translation>Gründe</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>Measurements</source>
        <translation>Messwerte</translation>
    </message>
    <message>
        <source>Hand adjustment</source>
        <translation>Anpassung von Hand</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Take back</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>share of the crop</source>
        <translation>Anteil des Zuschnitts</translation>
    </message>
    <message>
        <source>What the confidence is made of</source>
        <translation>Woraus sich die Sicherheit ergibt</translation>
    </message>
    <message>
        <source>Reset the hand adjustment (%1)</source>
        <translation>Anpassung von Hand zurücksetzen (%1)</translation>
    </message>
    <message>
        <source>Select a photo to see how it was measured.</source>
        <translation>Wählen Sie ein Foto, um zu sehen, wie es gemessen wurde.</translation>
    </message>
    <message>
        <source>No job is open.</source>
        <translation>Kein Auftrag ist geöffnet.</translation>
    </message>
    <message>
        <source>%1, approves itself at %2</source>
        <translation>%1, gibt sich ab %2 selbst frei</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photos</source>
        <translation>
            <numerusform>%1 von %n Foto</numerusform>
            <numerusform>%1 von %n Fotos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Mixed (%n crop types)</source>
        <translation>
            <numerusform>Gemischt (%n Zuschnittart)</numerusform>
            <numerusform>Gemischt (%n Zuschnittarten)</numerusform>
        </translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation>Gemischt</translation>
    </message>
    <message numerus="yes">
        <source>Approve %n Photo(s)</source>
        <translation>
            <numerusform>%n Foto freigeben</numerusform>
            <numerusform>%n Fotos freigeben</numerusform>
        </translation>
    </message>
    <message>
        <source>Approve</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Approve and next</source>
        <translation>Freigeben und weiter</translation>
    </message>
    <message>
        <source>Next photo</source>
        <translation>Nächstes Foto</translation>
    </message>
</context>
<context>
    <name>morva::PlateList</name>
    <message>
        <source>Matched</source>
        <translation>Angeglichen</translation>
    </message>
    <message>
        <source>Backdrops</source>
        <translation>Hintergründe</translation>
    </message>
    <message>
        <source>A backdrop in the color of each photo’s own</source>
        <translation>Ein Hintergrund in der Farbe des jeweiligen Fotos</translation>
    </message>
</context>
<context>
    <name>morva::PoseList</name>
    <message>
        <source>Remove?</source>
        <translation>Entfernen?</translation>
    </message>
    <message>
        <source>Save as a pose pack…</source>
        <translation>Als Posenpaket sichern …</translation>
    </message>
    <message>
        <source>Add a pose pack…</source>
        <translation>Posenpaket hinzufügen …</translation>
    </message>
    <message>
        <source>Poses you&apos;ve taught</source>
        <translation>Gelehrte Posen</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
    <message>
        <source>d MMM</source>
        <comment>day and month</comment>
        <translation>d. MMM</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the pose “%1”</source>
        <translation>Die Pose „%1“ entfernen</translation>
    </message>
</context>
<context>
    <name>morva::PoseSheet</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Worth a second look</source>
        <translation>Einen zweiten Blick wert</translation>
    </message>
    <message>
        <source>Teach a pose</source>
        <translation>Pose lehren</translation>
    </message>
    <message>
        <source>Tick photos of one pose. Morva learns to find it and gives it its crop type.</source>
        <translation>Haken Sie Fotos einer Pose an. Morva lernt, sie zu finden, und gibt ihr ihre Zuschnittart.</translation>
    </message>
    <message>
        <source>Train</source>
        <translation>Lehren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Train Again</source>
        <translation>Erneut lehren</translation>
    </message>
    <message>
        <source>Space</source>
        <comment>key</comment>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>tick</source>
        <translation>anhaken</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>Arms crossed</source>
        <comment>example of a pose</comment>
        <translation>Arme verschränkt</translation>
    </message>
    <message>
        <source>Training</source>
        <translation>Lehren läuft</translation>
    </message>
    <message>
        <source>Examples found</source>
        <translation>Gefundene Beispiele</translation>
    </message>
    <message>
        <source>Tagged photos that are right</source>
        <translation>Richtig erkannte Fotos</translation>
    </message>
    <message>
        <source>All photos  %1</source>
        <translation>Alle Fotos  %1</translation>
    </message>
    <message>
        <source>Ticked  %1</source>
        <translation>Angehakt  %1</translation>
    </message>
    <message numerus="yes">
        <source>%1 ticked against %n other(s)</source>
        <translation>
            <numerusform>%1 angehakt gegen %n anderes</numerusform>
            <numerusform>%1 angehakt gegen %n andere</numerusform>
        </translation>
    </message>
    <message>
        <source>Trained</source>
        <translation>Gelehrt</translation>
    </message>
    <message>
        <source>%1 of %2 photos looked at</source>
        <translation>%1 von %2 Fotos angesehen</translation>
    </message>
    <message>
        <source>Keep This Pose</source>
        <translation>Diese Pose behalten</translation>
    </message>
    <message>
        <source>%1 of %2   %3</source>
        <translation>%1 von %2   %3</translation>
    </message>
    <message>
        <source>Ticked, but not recognized</source>
        <translation>Angehakt, aber nicht erkannt</translation>
    </message>
    <message>
        <source>Recognized, but not ticked</source>
        <translation>Erkannt, aber nicht angehakt</translation>
    </message>
    <message>
        <source>Untick</source>
        <translation>Haken entfernen</translation>
    </message>
    <message>
        <source>Tick</source>
        <translation>Anhaken</translation>
    </message>
</context>
<context>
    <name>morva::PresetBox</name>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>The crop type is gone</source>
        <translation>Die Zuschnittart gibt es nicht mehr</translation>
    </message>
</context>
<context>
    <name>morva::PresetForm</name>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>Color of the badge</source>
        <translation>Farbe des Kürzels</translation>
    </message>
    <message>
        <source>Ratio, width</source>
        <translation>Seitenverhältnis, Breite</translation>
    </message>
    <message>
        <source>Ratio, height</source>
        <translation>Seitenverhältnis, Höhe</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Seitenverhältnis</translation>
    </message>
    <message>
        <source>Framing</source>
        <translation>Ausschnitt</translation>
    </message>
    <message>
        <source>Face size</source>
        <translation>Gesichtsgröße</translation>
    </message>
    <message>
        <source>Face size (eyes to chin)</source>
        <translation>Gesichtsgröße (Augen bis Kinn)</translation>
    </message>
    <message>
        <source>Outlier tolerance</source>
        <translation>Toleranz für Ausreißer</translation>
    </message>
    <message>
        <source>One steady crop size per child</source>
        <translation>Gleichbleibende Größe je Kind</translation>
    </message>
    <message>
        <source>Placement</source>
        <translation>Platzierung</translation>
    </message>
    <message>
        <source>Horizontal anchor</source>
        <translation>Waagerechter Bezug</translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation>Waagerechte Lage</translation>
    </message>
    <message>
        <source>Vertical placement</source>
        <translation>Senkrechte Lage</translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation>Rand oben</translation>
    </message>
    <message>
        <source>Eye line position</source>
        <translation>Lage der Augenlinie</translation>
    </message>
    <message>
        <source>Body framing</source>
        <translation>Ausschnitt nach dem Körper</translation>
    </message>
    <message>
        <source>Top margin, body</source>
        <translation>Rand oben, Körper</translation>
    </message>
    <message>
        <source>Knees or feet at</source>
        <translation>Knie oder Füße bei</translation>
    </message>
    <message>
        <source>Hips at</source>
        <translation>Hüfte bei</translation>
    </message>
    <message>
        <source>Keep inside the crop</source>
        <translation>Im Zuschnitt behalten</translation>
    </message>
    <message>
        <source>Hair outline</source>
        <translation>Haarumriss</translation>
    </message>
    <message>
        <source>Bows, hats and what is on the head</source>
        <translation>Schleifen, Hüte und was auf dem Kopf sitzt</translation>
    </message>
    <message>
        <source>A held prop</source>
        <translation>Eine gehaltene Requisite</translation>
    </message>
    <message>
        <source>A prop held above the head</source>
        <translation>Eine über dem Kopf gehaltene Requisite</translation>
    </message>
    <message>
        <source>Least gap to the edge</source>
        <translation>Kleinster Abstand zum Rand</translation>
    </message>
    <message>
        <source>Leveling</source>
        <translation>Ausrichten</translation>
    </message>
    <message>
        <source>Turn of the crop</source>
        <translation>Drehung des Zuschnitts</translation>
    </message>
    <message>
        <source>Straighten at most (°)</source>
        <translation>Höchstens ausrichten (°)</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Camera roll</source>
        <translation>Kameraneigung</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Approve at confidence</source>
        <translation>Freigeben ab Sicherheit</translation>
    </message>
    <message>
        <source>Reference portrait</source>
        <translation>Referenzporträt</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Another size</source>
        <translation>Andere Größe</translation>
    </message>
    <message>
        <source>Fix height</source>
        <translation>Höhe anpassen</translation>
    </message>
    <message>
        <source>Star rating</source>
        <translation>Sterne</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message numerus="yes">
        <source>%n star(s)</source>
        <translation>
            <numerusform>%n Stern</numerusform>
            <numerusform>%n Sterne</numerusform>
        </translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Breite in Pixeln</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Höhe in Pixeln</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>JPEG quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>Auflösung</translation>
    </message>
    <message>
        <source> dpi</source>
        <translation> dpi</translation>
    </message>
    <message>
        <source>Keep EXIF / IPTC metadata</source>
        <translation>EXIF-/IPTC-Angaben behalten</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>No backdrop image</source>
        <translation>Kein Hintergrundbild</translation>
    </message>
    <message>
        <source>Choose a backdrop image</source>
        <translation>Ein Hintergrundbild wählen</translation>
    </message>
    <message>
        <source>Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</source>
        <translation>Bilder (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</translation>
    </message>
    <message>
        <source>Backdrop</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Matched to photo</source>
        <translation>Ans Foto angeglichen</translation>
    </message>
    <message>
        <source>Chosen</source>
        <translation>Gewählt</translation>
    </message>
    <message>
        <source>Color of the backdrop</source>
        <translation>Farbe des Hintergrunds</translation>
    </message>
    <message>
        <source>Outside the photo</source>
        <translation>Außerhalb des Fotos</translation>
    </message>
    <message>
        <source>The child is cut out with a soft matte (refined around the hair) and placed on the backdrop, so crops wider than the photo come out clean and no longer go to Review for canvas.</source>
        <translation>Das Kind wird mit einer weichen Maske (am Haar verfeinert) freigestellt und auf den Hintergrund gesetzt; so gelingen auch Zuschnitte, die breiter sind als das Foto, und müssen nicht mehr wegen fehlender Fläche geprüft werden.</translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation>Vignette</translation>
    </message>
    <message>
        <source>Backdrop zoom</source>
        <translation>Zoom des Hintergrunds</translation>
    </message>
    <message>
        <source>Floor reflection under the feet</source>
        <translation>Spiegelung am Boden unter den Füßen</translation>
    </message>
</context>
<context>
    <name>morva::PresetPage</name>
    <message>
        <source>Crop type</source>
        <translation>Zuschnittart</translation>
    </message>
    <message>
        <source>Use for all photos of this job</source>
        <translation>Für alle Fotos dieses Auftrags verwenden</translation>
    </message>
    <message>
        <source>What to do with presets</source>
        <translation>Was mit Vorgaben zu tun ist</translation>
    </message>
    <message>
        <source>New, duplicate, reset, delete, rules, backdrops, poses</source>
        <translation>Neu, duplizieren, zurücksetzen, löschen, Regeln, Hintergründe, Posen</translation>
    </message>
    <message>
        <source>Automatic (rules)</source>
        <translation>Automatisch (Regeln)</translation>
    </message>
    <message>
        <source>The rules choose the crop type of each photo.</source>
        <translation>Die Regeln wählen die Zuschnittart jedes Fotos.</translation>
    </message>
    <message>
        <source>Used by no photo of this job.</source>
        <translation>Von keinem Foto dieses Auftrags genutzt.</translation>
    </message>
    <message numerus="yes">
        <source>Used by %n photo(s) of this job. Changes re-crop them at once.</source>
        <translation>
            <numerusform>Von %n Foto dieses Auftrags genutzt. Änderungen schneiden es sofort neu zu.</numerusform>
            <numerusform>Von %n Fotos dieses Auftrags genutzt. Änderungen schneiden sie sofort neu zu.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation>
            <numerusform>%1: %n Foto</numerusform>
            <numerusform>%1: %n Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>Show this crop type</source>
        <translation>Diese Zuschnittart zeigen</translation>
    </message>
    <message>
        <source>Edit Rules…</source>
        <translation>Regeln bearbeiten …</translation>
    </message>
    <message>
        <source>New Preset from Defaults</source>
        <translation>Neue Vorgabe aus Grundwerten</translation>
    </message>
    <message>
        <source>New preset</source>
        <translation>Neue Vorgabe</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Reset to Built-in Values</source>
        <translation>Auf eingebaute Werte zurücksetzen</translation>
    </message>
    <message>
        <source>Delete and Use Instead</source>
        <translation>Löschen und stattdessen verwenden</translation>
    </message>
    <message>
        <source>Backdrops…</source>
        <translation>Hintergründe …</translation>
    </message>
    <message>
        <source>Teach a Pose…</source>
        <translation>Pose lehren …</translation>
    </message>
</context>
<context>
    <name>morva::ReferenceBox</name>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Takes face size, eye line and top margin from a finished portrait.</source>
        <translation>Übernimmt Gesichtsgröße, Augenlinie und oberen Rand von einem fertigen Porträt.</translation>
    </message>
    <message>
        <source>Choose a finished portrait</source>
        <translation>Ein fertiges Porträt wählen</translation>
    </message>
    <message>
        <source>Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</source>
        <translation>Bilder (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation>Wird gemessen …</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>A finished portrait can set face size, eye line and top margin.</source>
        <translation>Ein fertiges Porträt kann Gesichtsgröße, Augenlinie und oberen Rand vorgeben.</translation>
    </message>
    <message>
        <source>Headroom %1</source>
        <translation>Kopfraum %1</translation>
    </message>
    <message>
        <source>Headroom not measured</source>
        <translation>Kopfraum nicht gemessen</translation>
    </message>
    <message>
        <source>Face %1 · eyes %2</source>
        <translation>Gesicht %1 · Augen %2</translation>
    </message>
</context>
<context>
    <name>morva::RightPanel</name>
    <message>
        <source>Preset</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
    <message>
        <source>Pages of the panel</source>
        <translation>Seiten der Leiste</translation>
    </message>
</context>
<context>
    <name>morva::RuleRow</name>
    <message>
        <source>Drag, or Alt+Up and Alt+Down</source>
        <translation>Ziehen, oder Alt+Auf und Alt+Ab</translation>
    </message>
    <message>
        <source>Edit Condition</source>
        <translation>Bedingung bearbeiten</translation>
    </message>
    <message>
        <source>Move Up	Alt+Up</source>
        <translation>Nach oben	Alt+Auf</translation>
    </message>
    <message>
        <source>Move Down	Alt+Down</source>
        <translation>Nach unten	Alt+Ab</translation>
    </message>
    <message>
        <source>Remove	Del</source>
        <translation>Entfernen	Entf</translation>
    </message>
    <message>
        <source>Acts on the rule “%1”</source>
        <translation>Wirkt auf die Regel „%1“</translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n Foto</numerusform>
            <numerusform>%n Fotos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>morva::RulesSheet</name>
    <message>
        <source>Automatic (rules)</source>
        <translation>Automatisch (Regeln)</translation>
    </message>
    <message>
        <source>Crop-type rules</source>
        <translation>Regeln für Zuschnittarten</translation>
    </message>
    <message>
        <source>Rules are tried top to bottom; the first match wins. Ratings and labels come from Lightroom, signs and backpacks are detected in the photo.</source>
        <translation>Regeln gelten von oben nach unten; die erste, die zutrifft, zählt. Sterne und Etiketten kommen aus Lightroom, Schilder und Rucksäcke werden im Foto erkannt.</translation>
    </message>
    <message>
        <source>Crop preset for this job, or Automatic to pick one per photo by the rules</source>
        <translation>Vorgabe für diesen Auftrag, oder Automatisch, um je Foto nach den Regeln zu wählen</translation>
    </message>
    <message>
        <source>Add Rule</source>
        <translation>Regel hinzufügen</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Grundeinstellung</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>When a photo shows</source>
        <translation>Wenn ein Foto zeigt</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Nimm</translation>
    </message>
    <message>
        <source>Photos</source>
        <translation>Fotos</translation>
    </message>
    <message>
        <source>Off: all photos without a crop type of their own get %1</source>
        <translation>Aus: alle Fotos ohne eigene Zuschnittart bekommen %1</translation>
    </message>
    <message numerus="yes">
        <source>All %n photo(s) have a crop type</source>
        <translation>
            <numerusform>%n Foto hat eine Zuschnittart</numerusform>
            <numerusform>Alle %n Fotos haben eine Zuschnittart</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s) without a rule: their own crop type, or %1</source>
        <translation>
            <numerusform>%n Foto ohne Regel: die eigene Zuschnittart oder %1</numerusform>
            <numerusform>%n Fotos ohne Regel: die eigene Zuschnittart oder %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Switched off</source>
        <translation>Ausgeschaltet</translation>
    </message>
    <message>
        <source>Its crop type is gone</source>
        <translation>Die Zuschnittart gibt es nicht mehr</translation>
    </message>
    <message>
        <source>Waits: star ratings are in use in this job</source>
        <translation>Wartet: In diesem Auftrag sind Sterne vergeben</translation>
    </message>
    <message>
        <source>Every such photo matches a rule above</source>
        <translation>Für jedes solche Foto gilt schon eine Regel darüber</translation>
    </message>
    <message>
        <source>No photo shows this</source>
        <translation>Kein Foto zeigt das</translation>
    </message>
    <message>
        <source>Change Rules</source>
        <translation>Regeln ändern</translation>
    </message>
</context>
<context>
    <name>morva::SheetSet</name>
    <message>
        <source>Choose a folder for the crops</source>
        <translation>Ordner für die Zuschnitte wählen</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Wählen</translation>
    </message>
    <message>
        <source>Tables (*.csv)</source>
        <translation>Tabellen (*.csv)</translation>
    </message>
    <message>
        <source>Show in Preset</source>
        <translation>In der Vorgabe zeigen</translation>
    </message>
    <message>
        <source>Add a pose pack</source>
        <translation>Posenpaket hinzufügen</translation>
    </message>
    <message>
        <source>Pose packs (*.json)</source>
        <translation>Posenpakete (*.json)</translation>
    </message>
    <message>
        <source>Save a pose pack</source>
        <translation>Posenpaket sichern</translation>
    </message>
    <message>
        <source>Choose a backdrop image</source>
        <translation>Ein Hintergrundbild wählen</translation>
    </message>
    <message>
        <source>Pictures (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</source>
        <translation>Bilder (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</translation>
    </message>
</context>
<context>
    <name>morva::SliderRow</name>
    <message>
        <source> %</source>
        <comment>after a number</comment>
        <translation> %</translation>
    </message>
</context>
<context>
    <name>morva::StatusStrip</name>
    <message>
        <source>move</source>
        <translation>rücken</translation>
    </message>
    <message>
        <source>zoom</source>
        <translation>zoomen</translation>
    </message>
    <message>
        <source>turn</source>
        <translation>drehen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>approve</source>
        <translation>freigeben</translation>
    </message>
    <message>
        <source>Keys: %1</source>
        <translation>Tasten: %1</translation>
    </message>
    <message numerus="yes">
        <source>about %n s left</source>
        <translation>
            <numerusform>noch etwa %n s</numerusform>
            <numerusform>noch etwa %n s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <translation>
            <numerusform>noch etwa %n min</numerusform>
            <numerusform>noch etwa %n min</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>No job open</source>
        <translation>Kein Auftrag geöffnet</translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n Foto</numerusform>
            <numerusform>%n Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 · %n selected</source>
        <translation>
            <numerusform>%1 · %n ausgewählt</numerusform>
            <numerusform>%1 · %n ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 photos/s</source>
        <translation>%1 Fotos/s</translation>
    </message>
</context>
<context>
    <name>morva::WelcomeView</name>
    <message>
        <source>today</source>
        <translation>heute</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>gestern</translation>
    </message>
    <message>
        <source>d MMM</source>
        <comment>day and month</comment>
        <translation>d. MMM</translation>
    </message>
    <message>
        <source>JPEG, PNG, TIFF or HEIC. The folder itself is never changed.</source>
        <translation>JPEG, PNG, TIFF oder HEIC. Der Ordner selbst wird nie verändert.</translation>
    </message>
    <message>
        <source>Import Folder…</source>
        <translation>Ordner importieren …</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <comment>key</comment>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Choose a folder of portraits</source>
        <translation>Ordner mit Porträts wählen</translation>
    </message>
    <message>
        <source>Recent folders</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>1 Crop</source>
        <translation>1 Zuschneiden</translation>
    </message>
    <message>
        <source>Every face gets the same size and place.</source>
        <translation>Jedes Gesicht bekommt dieselbe Größe und denselben Platz.</translation>
    </message>
    <message>
        <source>2 Review</source>
        <translation>2 Prüfen</translation>
    </message>
    <message>
        <source>Only doubtful photos ask for a look.</source>
        <translation>Nur zweifelhafte Fotos brauchen einen Blick.</translation>
    </message>
    <message>
        <source>3 Export</source>
        <translation>3 Ausgeben</translation>
    </message>
    <message>
        <source>Finished JPEGs, in a folder of their own.</source>
        <translation>Fertige JPEGs in einem eigenen Ordner.</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <comment>photos and day</comment>
        <translation>%1 · %2</translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation>
            <numerusform>%n Foto</numerusform>
            <numerusform>%n Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>Drop a folder of portraits here</source>
        <translation>Einen Ordner mit Porträts hierher ziehen</translation>
    </message>
    <message>
        <source>Drop to import %1</source>
        <translation>Loslassen, um %1 zu importieren</translation>
    </message>
</context>
<context>
    <name>words</name>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
</TS>
