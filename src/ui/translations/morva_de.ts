<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ColorButton</name>
    <message>
        <source>Green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Teal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Indigo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Violet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pink</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orange</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Olive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>White</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Very light gray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light gray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Middle gray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark gray</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nearly black</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sand</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PhotoReport</name>
    <message>
        <source>× %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Landmarks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chin estimates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 apart</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eye spacing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Head turned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Head tipped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hair outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>reliable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>uncertain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> ± %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>≥ %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Target</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chin line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Headroom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clearance left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clearance right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hair height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 face units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>≤ %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoomed out for the prop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>at most %1°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moved right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moved left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moved down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moved up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Crop size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Taken</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rating</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n star(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Label</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Poses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatic: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As the job: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This photo&apos;s own. The rules pick %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This photo&apos;s own. The job uses %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Picked by the rule “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No rule applies to this photo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The crop type of the job.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This photo has not been measured. Crop Photos does that.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped yet</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in review</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n approved</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n without a face</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unreadable</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photos selected</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As the job</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photos</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PresetForm</name>
    <message>
        <source> %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>by the body</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 above the head</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>balanced</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>eyes at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>head</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>prop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>at most %1°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>edges repeated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>plain backdrop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 : %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ReasonWords</name>
    <message>
        <source>The two measurements of the chin lie %1 of the face apart.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The eyes are %1 face heights apart; %2 is usual.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The head is turned %1° to the side; the face looks narrower than it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The head is tipped %1° up or down; the face looks shorter than it is.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The head is tilted %1°, too far to be sure of the crop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No outline of the hair was found, so its top is not known.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1. The top of the hair is a guess.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The outline of the hair cannot be trusted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The hair seems to end very close above the eyes, which is hard to believe.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The hair passes the left edge of the crop by %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The hair passes the right edge of the crop by %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 are left beside the hair at the left; the preset keeps %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 are left beside the hair at the right; the preset keeps %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The head passes the top of the crop by %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 are left above the head; the preset keeps %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The eye line is at %1, %2 lower than the preset asks for; tall hair or a bow pushes the face down.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The eye line is at %1, %2 higher than the preset asks for.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The crop reaches past the edge of the photo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The photo ends inside the frame (%1) and cuts the child off there, so nothing is added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The photo ends inside the frame: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n other face(s) could be meant as well; the crop follows the largest.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>The crop is %1 px high and would be enlarged %2 times to %3 px; %4 times is the limit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoomed out %1 so that the prop fits; the face is that much smaller.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no face to crop by. Such a photo is not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eyes and chin are only %1 sure; less than %2 needs a look.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing above</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing below</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing at the left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing at the right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The head reaches %1 face heights above the eyes; up to %2 is usual.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 are left above the head; the preset asks for %2 ± %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scored %1; the preset asks for %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Knees or feet could not be measured, so the face sets the size.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The ankles were not seen; the crop was measured by the knees or the outline.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the child holds needs more than the largest zoom of %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>actions</name>
    <message>
        <source>&amp;Import…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Re&amp;view List…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Folder of P&amp;hotos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Result Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;name Job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;move Job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Crop Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re-anal&amp;yze</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;view</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Approve All &amp;Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Take Back Approval</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Backdrops…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Teach a &amp;Pose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit R&amp;ules…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Before / After</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sidebar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Right Panel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>P&amp;hoto</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Larger Thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;maller Thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High &amp;Contrast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Morva</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A folder of portraits.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where jobs and presets are kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Where measurements and thumbnails are kept.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva</name>
    <message>
        <source>Confidence %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adjusted by hand</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::Actions</name>
    <message>
        <source>Crop &amp;Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent &amp;Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;how</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Job&apos;s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::AlertSheet</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::ColorButton</name>
    <message>
        <source>Color as a hexadecimal number</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::ConfidenceBar</name>
    <message>
        <source>Confidence</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, approves itself at %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::EmptyNote</name>
    <message>
        <source>Crop the photos first; they are sorted as they are measured.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photos in this job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Put photos into its folder and open the folder again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photos in Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each is approved already or needs a look first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photos in Review</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every doubt is settled. Export when you like.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photos in Approved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Space on a photo to approve its crop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photos without a face</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A face was found in every photo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No hand-adjusted photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Crops that you move, zoom or turn are kept here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::ExportSheet</name>
    <message>
        <source>%1 × %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <comment>no star rating</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The pixel size does not match the ratio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Approved photos only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace existing files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Destination</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the folder that the files go to</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>files to write</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>unchanged, skipped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>in review, left out</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>no face / errors</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s) are not cropped yet and are left out.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Leaves out the %n photo(s) that are ready but not approved</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Writes the %n unchanged photo(s) again</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Export %n File(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Crop type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rating</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About %1 · %2</source>
        <comment>size and time</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::Filmstrip</name>
    <message>
        <source>Filmstrip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The photos that the grid shows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::FilterBar</name>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Which photos are shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size of thumbnails</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::Inspector</name>
    <message>
        <source>%1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Margin %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Head top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chin line</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing above</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing below</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not among the %1 in %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 in %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No photo selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a photo in the grid or in the row below.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The photo cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was moved, renamed or damaged since it was imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Crop Photos measures it and crops it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No face was found, so there is nothing to crop by.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 px missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>frame %1 by %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>turned %1 degrees</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>eye line at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::InspectorBar</name>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show guides and measured points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Before / after</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the finished crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the whole photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom: whole photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::JobList</name>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n cropped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not cropped</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n not cropped</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to review</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>exported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>all approved</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n ready</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::JobSidebar</name>
    <message>
        <source>Each folder you import becomes a job and stays here with its crops.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Jobs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import a folder of portraits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type to find a job, F2 renames it</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::KeyButton</name>
    <message>
        <source>Key %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::MainToolbar</name>
    <message numerus="yes">
        <source>%n photo(s) to review</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation type="unfinished"></translation>
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
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::PhotoCanvas</name>
    <message>
        <source>Crop of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::PhotoGrid</name>
    <message>
        <source>Photos</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop to import %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::PhotoPage</name>
    <message>
        <source>Crop type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reasons</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Notes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measurements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hand adjustment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Details</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>share of the crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What the confidence is made of</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset the hand adjustment (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select a photo to see how it was measured.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No job is open.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, approves itself at %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n photos</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Mixed (%n crop types)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Approve %n Photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Approve</source>
        <translation type="unfinished">Freigeben</translation>
    </message>
    <message>
        <source>Approve and next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next photo</source>
        <translation type="unfinished">Nächstes Foto</translation>
    </message>
</context>
<context>
    <name>morva::PresetForm</name>
    <message>
        <source>Crop type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Badge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color of the badge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ratio, width</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ratio, height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Framing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face size (eyes to chin)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outlier tolerance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One steady crop size per child</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Placement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horizontal anchor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horizontal position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vertical placement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top margin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eye line position</source>
        <translation type="unfinished">Lage der Augenlinie</translation>
    </message>
    <message>
        <source>Body framing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top margin, body</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Knees or feet at</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hips at</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep inside the crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hair outline</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bows, hats and what is on the head</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A held prop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A prop held above the head</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Least gap to the edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Leveling</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn of the crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Straighten at most (°)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strength</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera roll</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Review</source>
        <translation type="unfinished">Prüfen</translation>
    </message>
    <message>
        <source>Approve at confidence</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reference portrait</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fix height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Star rating</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n star(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JPEG quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> dpi</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep EXIF / IPTC metadata</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No backdrop image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a backdrop image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backdrop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Matched to photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chosen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color of the backdrop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outside the photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The child is cut out with a soft matte (refined around the hair) and placed on the backdrop, so crops wider than the photo come out clean and no longer go to Review for canvas.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vignette</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backdrop zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Floor reflection under the feet</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::PresetPage</name>
    <message>
        <source>Crop type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use for all photos of this job</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>What to do with presets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New, duplicate, reset, delete, rules, backdrops, poses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Automatic (rules)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rules choose the crop type of each photo.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used by no photo of this job.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Used by %n photo(s) of this job. Changes re-crop them at once.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Show this crop type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Rules…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Preset from Defaults</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset to Built-in Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete and Use Instead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backdrops…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Teach a Pose…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::ReferenceBox</name>
    <message>
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Takes face size, eye line and top margin from a finished portrait.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a finished portrait</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Measuring…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A finished portrait can set face size, eye line and top margin.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Headroom %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Headroom not measured</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Face %1 · eyes %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::RightPanel</name>
    <message>
        <source>Preset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Photo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pages of the panel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::SheetSet</name>
    <message>
        <source>Choose a folder for the crops</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tables (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Preset</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::StatusStrip</name>
    <message>
        <source>move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zoom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>turn</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>approve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>about %n s left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No job open</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%1 · %n selected</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1 photos/s</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>morva::WelcomeView</name>
    <message>
        <source>today</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>d MMM</source>
        <comment>day and month</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>JPEG, PNG, TIFF or HEIC. The folder itself is never changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Folder…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl</source>
        <comment>key</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a folder of portraits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recent folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 Crop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every face gets the same size and place.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2 Review</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only doubtful photos ask for a look.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3 Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Finished JPEGs, in a folder of their own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <comment>photos and day</comment>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n photo(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Drop a folder of portraits here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop to import %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>words</name>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
