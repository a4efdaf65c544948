<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Vupuge</name>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source> points</source>
        <translation> Punkt</translation>
    </message>
    <message>
        <source>%1 (cannot be read)</source>
        <translation>%1 (nicht lesbar)</translation>
    </message>
    <message>
        <source>%1 as they were</source>
        <translation>%1 unverändert</translation>
    </message>
    <message>
        <source>%1 as to-do lines</source>
        <translation>%1 als Aufgabenzeilen</translation>
    </message>
    <message>
        <source>%1 at line %2, column %3</source>
        <translation>%1 in Zeile %2, Spalte %3</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>%1 konnte nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 antwortet nicht.</translation>
    </message>
    <message>
        <source>%1 does not understand what it was asked (%2).</source>
        <translation>%1 versteht die Anfrage nicht (%2).</translation>
    </message>
    <message>
        <source>%1 ended before it answered.</source>
        <translation>%1 wurde beendet, bevor eine Antwort kam.</translation>
    </message>
    <message>
        <source>%1 gave an answer that cannot be understood (%2).</source>
        <translation>Die Antwort von %1 ist nicht zu verstehen (%2).</translation>
    </message>
    <message>
        <source>%1 imported</source>
        <translation>%1 importiert</translation>
    </message>
    <message>
        <source>%1 in skipped notes</source>
        <translation>%1 in übersprungenen Notizen</translation>
    </message>
    <message>
        <source>%1 is neither running nor installed.</source>
        <translation>%1 läuft nicht und ist nicht installiert.</translation>
    </message>
    <message>
        <source>%1 items could not be imported. The first is “%2”: %3</source>
        <translation>%1 Objekte konnten nicht importiert werden. Das erste ist „%2“: %3</translation>
    </message>
    <message>
        <source>%1 kept at the end of their notes</source>
        <translation>%1 am Ende ihrer Notizen behalten</translation>
    </message>
    <message>
        <source>%1 lead to imported notes</source>
        <translation>%1 führen zu importierten Notizen</translation>
    </message>
    <message>
        <source>%1 left out</source>
        <translation>%1 weggelassen</translation>
    </message>
    <message>
        <source>%1 not imported</source>
        <translation>%1 nicht importiert</translation>
    </message>
    <message>
        <source>%1 refused what it was asked (%2).</source>
        <translation>%1 hat die Anfrage abgelehnt (%2).</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 gezeigt</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 übersprungen</translation>
    </message>
    <message>
        <source>%1$@ of %2$@</source>
        <translation>%1$@ von %2$@</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%@/sec</source>
        <translation>%@/s</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notebooks checked</source>
        <translation>
            <numerusform>%Ln Notizbuch angekreuzt</numerusform>
            <numerusform>%Ln Notizbücher angekreuzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln Notiz</numerusform>
            <numerusform>%Ln Notizen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were imported.</source>
        <translation>
            <numerusform>%Ln Notiz wurde importiert.</numerusform>
            <numerusform>%Ln Notizen wurden importiert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were skipped.</source>
        <translation>
            <numerusform>%Ln Notiz wurde übersprungen.</numerusform>
            <numerusform>%Ln Notizen wurden übersprungen.</numerusform>
        </translation>
    </message>
    <message>
        <source>%ld day remaining</source>
        <translation>Noch %ld Tag</translation>
    </message>
    <message>
        <source>%ld days remaining</source>
        <translation>Noch %ld Tage</translation>
    </message>
    <message>
        <source>%ld hour remaining</source>
        <translation>Noch %ld Stunde</translation>
    </message>
    <message>
        <source>%ld hours remaining</source>
        <translation>Noch %ld Stunden</translation>
    </message>
    <message>
        <source>%ld minute remaining</source>
        <translation>Noch %ld Minute</translation>
    </message>
    <message>
        <source>%ld minutes remaining</source>
        <translation>Noch %ld Minuten</translation>
    </message>
    <message>
        <source>%ld second remaining</source>
        <translation>Noch %ld Sekunde</translation>
    </message>
    <message>
        <source>%ld seconds remaining</source>
        <translation>Noch %ld Sekunden</translation>
    </message>
    <message>
        <source>%lu notes exported</source>
        <translation>%lu Notizen exportiert</translation>
    </message>
    <message>
        <source>%lu of %lu notes exported</source>
        <translation>%lu von %lu Notizen exportiert</translation>
    </message>
    <message>
        <source>&amp;About Vupuge</source>
        <translation>Ü&amp;ber Vupuge</translation>
    </message>
    <message>
        <source>&amp;Background colour:</source>
        <translation>&amp;Hintergrundfarbe:</translation>
    </message>
    <message>
        <source>&amp;Check All Notebooks</source>
        <translation>&amp;Alle Notizbücher ankreuzen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>&amp;ENEX Files</source>
        <translation>&amp;ENEX-Dateien</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Find Notebook</source>
        <translation>Notizbuch &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>&amp;Schrift:</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>&amp;Notebooks to import:</source>
        <translation>&amp;Notizbücher zum Importieren:</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Notizen</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Optionen …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Read files of today's Evernote whole</source>
        <translation>Dateien des heutigen Evernote &amp;vollständig lesen</translation>
    </message>
    <message>
        <source>&amp;Release Notes</source>
        <translation>&amp;Versionshinweise</translation>
    </message>
    <message>
        <source>&amp;Restore Defaults</source>
        <translation>Standard &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Text colour:</source>
        <translation>&amp;Textfarbe:</translation>
    </message>
    <message>
        <source>&amp;Uncheck All Notebooks</source>
        <translation>Alle Kreuze &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Web Pages</source>
        <translation>&amp;Webseiten</translation>
    </message>
    <message>
        <source>&amp;Zoom:</source>
        <translation>&amp;Zoom:</translation>
    </message>
    <message>
        <source>A date is too far off for an XML property list.</source>
        <translation>Ein Datum ist zu weit entfernt für eine XML-Eigenschaftsliste.</translation>
    </message>
    <message>
        <source>A date of the note is damaged and was left out.</source>
        <translation>Ein Datum der Notiz ist beschädigt und wurde weggelassen.</translation>
    </message>
    <message>
        <source>A library folder takes no destination, rating, comments, label or tags.</source>
        <translation>Ein Bibliotheksordner nimmt weder Ziel, Wertung, Kommentare, Etikett noch Schlagwörter an.</translation>
    </message>
    <message>
        <source>A link is changed where its text is the title of exactly one note of the file. All others keep leading to Evernote.</source>
        <translation>Ein Link wird geändert, wo sein Text der Titel genau einer Notiz der Datei ist. Alle anderen führen weiterhin zu Evernote.</translation>
    </message>
    <message>
        <source>A note is not there any more.</source>
        <translation>Eine Notiz ist nicht mehr da.</translation>
    </message>
    <message>
        <source>A secure connection to the server could not be made.</source>
        <translation>Es konnte keine sichere Verbindung zum Server hergestellt werden.</translation>
    </message>
    <message>
        <source>A server with the specified host name could not be found.</source>
        <translation>Ein Server mit diesem Namen wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>A tag with more than %1 attributes</source>
        <translation>Ein Tag mit mehr als %1 Attributen</translation>
    </message>
    <message>
        <source>A value has no place in a property list.</source>
        <translation>Ein Wert hat in einer Eigenschaftsliste keinen Platz.</translation>
    </message>
    <message>
        <source>An error occurred while exporting.</source>
        <translation>Beim Exportieren ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>An older way of getting notes out of Evernote, one file for each note. ENEX keeps more.</source>
        <translation>Ein älterer Weg, Notizen aus Evernote zu holen, eine Datei je Notiz. ENEX behält mehr.</translation>
    </message>
    <message>
        <source>An unknown error occurred.</source>
        <translation>Ein unbekannter Fehler ist aufgetreten.</translation>
    </message>
    <message>
        <source>Another import is running.</source>
        <translation>Ein anderer Import läuft gerade.</translation>
    </message>
    <message>
        <source>Another note has the same link; only that one was kept.</source>
        <translation>Eine andere Notiz hat denselben Link; nur sie wurde behalten.</translation>
    </message>
    <message>
        <source>Attachments that the files do not hold: %1</source>
        <translation>Anhänge, die die Dateien nicht enthalten: %1</translation>
    </message>
    <message>
        <source>Attachments that the note shows but the file does not hold: %1.</source>
        <translation>Anhänge, die die Notiz zeigt, die Datei aber nicht enthält: %1.</translation>
    </message>
    <message>
        <source>Attachments: %1</source>
        <translation>Anhänge: %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Lesezeichen</translation>
    </message>
    <message>
        <source>Brings Evernote notes into Quillery.</source>
        <translation>Bringt Evernote-Notizen nach Quillery.</translation>
    </message>
    <message>
        <source>C&amp;hoose Folder...</source>
        <translation>Or&amp;dner auswählen …</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>Wird abgebrochen …</translation>
    </message>
    <message>
        <source>Cannot create input stream.</source>
        <translation>Der Eingabestrom kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Cannot create parser.</source>
        <translation>Der Parser kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Cannot parse "%@" data.</source>
        <translation>Die Daten von „%@“ können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Choose &amp;Folder...</source>
        <translation>&amp;Ordner auswählen …</translation>
    </message>
    <message>
        <source>Choose ENEX File...</source>
        <translation>ENEX-Datei auswählen …</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Code: %ld</source>
        <translation>Code: %ld</translation>
    </message>
    <message>
        <source>Could not connect to the server.</source>
        <translation>Mit dem Server konnte keine Verbindung hergestellt werden.</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>Standard (%1)</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Drop an ENEX file here</source>
        <translation>ENEX-Datei hier ablegen</translation>
    </message>
    <message>
        <source>Due: %1</source>
        <translation>Fällig: %1</translation>
    </message>
    <message>
        <source>Elements within more than %1 others</source>
        <translation>Elemente in mehr als %1 anderen</translation>
    </message>
    <message>
        <source>Encrypted passages, which cannot be read: %1. Asterisks stand in their place.</source>
        <translation>Verschlüsselte Stellen, die nicht gelesen werden können: %1. An ihrer Stelle stehen Sternchen.</translation>
    </message>
    <message>
        <source>Encrypted passages: %1</source>
        <translation>Verschlüsselte Stellen: %1</translation>
    </message>
    <message>
        <source>Evernote 10 and later write ENEX files in a new way. Read as they stand, such files lose dates and tasks, and tags gain empty entries. Files that are dropped on the window are recognized as long as nothing is chosen here.</source>
        <translation>Evernote 10 und neuer schreiben ENEX-Dateien auf eine neue Art. Unverändert gelesen, verlieren solche Dateien Daten und Aufgaben, und Schlagwörter bekommen leere Einträge. Dateien, die auf das Fenster gezogen werden, werden erkannt, solange hier nichts gewählt ist.</translation>
    </message>
    <message>
        <source>Evernote 5.2.0 or later is required.</source>
        <translation>Evernote 5.2.0 oder neuer wird benötigt.</translation>
    </message>
    <message>
        <source>Evernote did not export this note.</source>
        <translation>Evernote hat diese Notiz nicht exportiert.</translation>
    </message>
    <message>
        <source>Evernote export files (%1)</source>
        <translation>Evernote-Exportdateien (%1)</translation>
    </message>
    <message>
        <source>Everything came across.</source>
        <translation>Alles ist angekommen.</translation>
    </message>
    <message>
        <source>Everything that is made of each note stands in the log of the next import.</source>
        <translation>Im Protokoll des nächsten Imports steht alles, was aus jeder Notiz wird.</translation>
    </message>
    <message>
        <source>Export notes from Evernote in the format ENEX and try again.</source>
        <translation>Exportieren Sie Notizen aus Evernote im Format ENEX und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Exported files in the folder “%1” are listed here as notebooks.</source>
        <translation>Exportierte Dateien im Ordner „%1“ werden hier als Notizbücher aufgeführt.</translation>
    </message>
    <message>
        <source>Exporting Notes</source>
        <translation>Notizen werden exportiert</translation>
    </message>
    <message>
        <source>Exporting notes from "%@"</source>
        <translation>Notizen aus „%@“ werden exportiert</translation>
    </message>
    <message>
        <source>Exports Folder</source>
        <translation>Exportordner</translation>
    </message>
    <message>
        <source>Exports folder:</source>
        <translation>Exportordner:</translation>
    </message>
    <message>
        <source>Fi&amp;xed-pitch font:</source>
        <translation>Schrift fester &amp;Breite:</translation>
    </message>
    <message>
        <source>Files to import, and folders that hold such files.</source>
        <translation>Zu importierende Dateien und Ordner mit solchen Dateien.</translation>
    </message>
    <message>
        <source>Flagged</source>
        <translation>Markiert</translation>
    </message>
    <message>
        <source>Font &amp;size:</source>
        <translation>Schrift&amp;größe:</translation>
    </message>
    <message>
        <source>Getting notebook names...</source>
        <translation>Namen der Notizbücher werden geholt …</translation>
    </message>
    <message>
        <source>Have Evernote export notes as HTML</source>
        <translation>Evernote die Notizen als HTML exportieren lassen</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Import ENEX Fi&amp;le...</source>
        <translation>ENEX-Datei i&amp;mportieren …</translation>
    </message>
    <message>
        <source>Import ENEX File</source>
        <translation>ENEX-Datei importieren</translation>
    </message>
    <message>
        <source>Import “%1”</source>
        <translation>„%1“ importieren</translation>
    </message>
    <message>
        <source>Imported from Evernote, %@</source>
        <translation>Aus Evernote importiert, %@</translation>
    </message>
    <message>
        <source>In Evernote, choose a notebook, then “Export Notebook…” and the format ENEX. Drop the file that you get on this window, or choose it here.</source>
        <translation>Wählen Sie in Evernote ein Notizbuch, dann „Notizbuch exportieren …“ und das Format ENEX. Legen Sie die entstandene Datei auf diesem Fenster ab oder wählen Sie sie hier aus.</translation>
    </message>
    <message>
        <source>Initializing Evernote...</source>
        <translation>Evernote wird gestartet …</translation>
    </message>
    <message>
        <source>Invalid content data for resource.</source>
        <translation>Der Inhalt der Anlage ist ungültig.</translation>
    </message>
    <message>
        <source>Invalid crypt tag.</source>
        <translation>Ungültiges Verschlüsselungs-Tag.</translation>
    </message>
    <message>
        <source>Invalid media tag.</source>
        <translation>Ungültiges Medien-Tag.</translation>
    </message>
    <message>
        <source>Invalid todo tag.</source>
        <translation>Ungültiges Aufgaben-Tag.</translation>
    </message>
    <message>
        <source>It does not reach to its end.</source>
        <translation>Es reicht nicht bis zu seinem Ende.</translation>
    </message>
    <message>
        <source>Keep attachments that a note's text does not show</source>
        <translation>Anhänge behalten, die der Text einer Notiz nicht zeigt</translation>
    </message>
    <message>
        <source>Keeps dates, tags and tasks of files that Evernote 10 or later has written.</source>
        <translation>Behält Daten, Schlagwörter und Aufgaben von Dateien, die Evernote 10 oder neuer geschrieben hat.</translation>
    </message>
    <message>
        <source>Library Folder</source>
        <translation>Bibliotheksordner</translation>
    </message>
    <message>
        <source>Library folder:</source>
        <translation>Bibliotheksordner:</translation>
    </message>
    <message>
        <source>Links between notes lead to the imported notes</source>
        <translation>Links zwischen Notizen führen zu den importierten Notizen</translation>
    </message>
    <message>
        <source>Links between notes: %1</source>
        <translation>Links zwischen Notizen: %1</translation>
    </message>
    <message>
        <source>Links that lead to notes which were skipped: %1.</source>
        <translation>Links, die zu übersprungenen Notizen führen: %1.</translation>
    </message>
    <message>
        <source>Load clipped pages from the web again</source>
        <translation>Ausgeschnittene Seiten erneut aus dem Web laden</translation>
    </message>
    <message>
        <source>Loading notebooks</source>
        <translation>Notizbücher werden geladen</translation>
    </message>
    <message>
        <source>Mark captured pages for Java</source>
        <translation>Erfasste Seiten für Java kennzeichnen</translation>
    </message>
    <message>
        <source>Mark captured pages for JavaScript</source>
        <translation>Erfasste Seiten für JavaScript kennzeichnen</translation>
    </message>
    <message>
        <source>Mark captured pages for plug-ins</source>
        <translation>Erfasste Seiten für Plug-ins kennzeichnen</translation>
    </message>
    <message>
        <source>More marks of tags:</source>
        <translation>Weitere Zeichen für Schlagwörter:</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Neue Notiz</translation>
    </message>
    <message>
        <source>Next File</source>
        <translation>Nächste Datei</translation>
    </message>
    <message>
        <source>No content data for resource.</source>
        <translation>Die Anlage hat keinen Inhalt.</translation>
    </message>
    <message>
        <source>No notebooks selected!</source>
        <translation>Keine Notizbücher ausgewählt!</translation>
    </message>
    <message>
        <source>Not everything that the files hold came across.</source>
        <translation>Nicht alles, was die Dateien enthalten, ist angekommen.</translation>
    </message>
    <message>
        <source>Not imported</source>
        <translation>Nicht importiert</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Notebook</source>
        <translation>Notizbuch</translation>
    </message>
    <message>
        <source>Notebooks</source>
        <translation>Notizbücher</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Notes go here on a machine without Quillery.</source>
        <translation>Auf einem Rechner ohne Quillery kommen die Notizen hierher.</translation>
    </message>
    <message>
        <source>Notes: %1</source>
        <translation>Notizen: %1</translation>
    </message>
    <message>
        <source>Nothing could be imported into “%1”: %2</source>
        <translation>In „%1“ konnte nichts importiert werden: %2</translation>
    </message>
    <message>
        <source>Nothing in a page is ever run while it is captured, whatever is chosen here.</source>
        <translation>Beim Erfassen wird nie etwas aus einer Seite ausgeführt, was immer hier gewählt ist.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Objects are nested too deeply.</source>
        <translation>Objekte sind zu tief verschachtelt.</translation>
    </message>
    <message>
        <source>On a machine without Evernote its ENEX files are listed as notebooks, from the next start on.</source>
        <translation>Auf einem Rechner ohne Evernote erscheinen die ENEX-Dateien darin als Notizbücher, ab dem nächsten Start.</translation>
    </message>
    <message>
        <source>Only marked words in comments are tags</source>
        <translation>Nur markierte Wörter in Kommentaren sind Schlagwörter</translation>
    </message>
    <message>
        <source>Open &amp;Log</source>
        <translation>&amp;Protokoll öffnen</translation>
    </message>
    <message>
        <source>Open Li&amp;brary</source>
        <translation>&amp;Bibliothek öffnen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Otherwise a web clip is made from what Evernote has kept of the page. Pages are fetched without your cookies and passwords.</source>
        <translation>Sonst wird ein Webausschnitt aus dem gemacht, was Evernote von der Seite behalten hat. Seiten werden ohne Ihre Cookies und Passwörter geholt.</translation>
    </message>
    <message>
        <source>Please ensure the latest version of Evernote is installed and try again.</source>
        <translation>Installieren Sie die neueste Version von Evernote und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Preparing...</source>
        <translation>Vorbereitung …</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Quillery 3.5 or later is required.</source>
        <translation>Quillery 3.5 oder neuer wird benötigt.</translation>
    </message>
    <message>
        <source>Quillery app not found.</source>
        <translation>Das Programm Quillery wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Quillery is ending and takes no more imports.</source>
        <translation>Quillery wird gerade beendet und nimmt keine Importe mehr an.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Read files of today's Evernote whole</source>
        <translation>Dateien des heutigen Evernote vollständig lesen</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Recovered Items</source>
        <translation>Wiederhergestellte Objekte</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Reminder: %1</source>
        <translation>Erinnerung: %1</translation>
    </message>
    <message>
        <source>Repeats: %1</source>
        <translation>Wiederholung: %1</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search notebooks by name</source>
        <translation>Notizbücher nach Namen suchen</translation>
    </message>
    <message>
        <source>Select the notebooks to import and try again.</source>
        <translation>Wählen Sie die Notizbücher aus, die importiert werden sollen, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Show the ruler in imported notes</source>
        <translation>Lineal in importierten Notizen zeigen</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>&amp;Größe:</translation>
    </message>
    <message>
        <source>Siz&amp;e:</source>
        <translation>G&amp;röße:</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message>
        <source>Skipped notes and remarks</source>
        <translation>Übersprungene Notizen und Hinweise</translation>
    </message>
    <message>
        <source>Some notes may be missing; the log tells more.</source>
        <translation>Einige Notizen fehlen vielleicht; das Protokoll sagt mehr.</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Standard f&amp;ont:</source>
        <translation>Standard&amp;schrift:</translation>
    </message>
    <message>
        <source>Tasks that were lost because the file was read as it stands: %1.</source>
        <translation>Aufgaben, die verloren gingen, weil die Datei unverändert gelesen wurde: %1.</translation>
    </message>
    <message>
        <source>Tasks: %1</source>
        <translation>Aufgaben: %1</translation>
    </message>
    <message>
        <source>That is what Evernote means by them. Otherwise they are taken for the time on the clock.</source>
        <translation>So meint Evernote sie. Sonst gelten sie als Zeit der Uhr an der Wand.</translation>
    </message>
    <message>
        <source>The Internet connection appears to be offline.</source>
        <translation>Es scheint keine Internetverbindung zu bestehen.</translation>
    </message>
    <message>
        <source>The address is not valid.</source>
        <translation>Die Adresse ist ungültig.</translation>
    </message>
    <message>
        <source>The address is of a kind that cannot be loaded.</source>
        <translation>Adressen dieser Art können nicht geladen werden.</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>Das Archiv ist beschädigt.</translation>
    </message>
    <message>
        <source>The attachment “%1” stands where the note shows nothing; it was left out.</source>
        <translation>Der Anhang „%1“ steht, wo die Notiz nichts zeigt; er wurde weggelassen.</translation>
    </message>
    <message>
        <source>The attributes of “%1” are too large for its file system.</source>
        <translation>Die Attribute von „%1“ sind zu groß für das Dateisystem.</translation>
    </message>
    <message>
        <source>The box in the first column checks or unchecks all notebooks shown.</source>
        <translation>Das Kästchen in der ersten Spalte kreuzt alle gezeigten Notizbücher an oder keines.</translation>
    </message>
    <message>
        <source>The catalogue of an interrupted import is damaged.</source>
        <translation>Das Verzeichnis eines unterbrochenen Imports ist beschädigt.</translation>
    </message>
    <message>
        <source>The connection to the session bus was lost before %1 answered.</source>
        <translation>Die Verbindung zum Sitzungsbus ging verloren, bevor %1 geantwortet hat.</translation>
    </message>
    <message>
        <source>The copy of the file could not be written: %1</source>
        <translation>Die Kopie der Datei konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>The damaged settings cannot be kept.</source>
        <translation>Die beschädigten Einstellungen können nicht aufbewahrt werden.</translation>
    </message>
    <message>
        <source>The document could not be repaired.</source>
        <translation>Das Dokument konnte nicht repariert werden.</translation>
    </message>
    <message>
        <source>The document has no content.</source>
        <translation>Das Dokument hat keinen Inhalt.</translation>
    </message>
    <message>
        <source>The document is empty.</source>
        <translation>Das Dokument ist leer.</translation>
    </message>
    <message>
        <source>The document is not well-formed</source>
        <translation>Das Dokument ist nicht wohlgeformt</translation>
    </message>
    <message>
        <source>The document, or a tag in it, is too large.</source>
        <translation>Das Dokument oder ein Tag darin ist zu groß.</translation>
    </message>
    <message>
        <source>The encoding “%1” is not supported.</source>
        <translation>Die Kodierung „%1“ wird nicht unterstützt.</translation>
    </message>
    <message>
        <source>The export “%1” could not be written: %2</source>
        <translation>Der Export „%1“ konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei existiert nicht.</translation>
    </message>
    <message>
        <source>The file is a folder.</source>
        <translation>Die Datei ist ein Ordner.</translation>
    </message>
    <message>
        <source>The file is indented, as today's Evernote writes it. Read as it stands, it loses dates, and tags gain empty entries.</source>
        <translation>Die Datei ist eingerückt, wie das heutige Evernote sie schreibt. Unverändert gelesen, verliert sie Daten, und Schlagwörter bekommen leere Einträge.</translation>
    </message>
    <message>
        <source>The file is of today's Evernote and was read whole, so that its dates, tags and tasks came across. The options can turn that off.</source>
        <translation>Die Datei stammt vom heutigen Evernote und wurde vollständig gelesen, sodass ihre Daten, Schlagwörter und Aufgaben angekommen sind. In den Optionen lässt sich das ausschalten.</translation>
    </message>
    <message>
        <source>The file isn’t in the correct format.</source>
        <translation>Die Datei hat nicht das richtige Format.</translation>
    </message>
    <message>
        <source>The file system does not keep the note's dates or tags on its file.</source>
        <translation>Das Dateisystem behält Daten oder Schlagwörter der Notiz nicht an ihrer Datei.</translation>
    </message>
    <message>
        <source>The file system of “%1” keeps no attributes.</source>
        <translation>Das Dateisystem von „%1“ behält keine Attribute.</translation>
    </message>
    <message>
        <source>The file “%1” changed while it was read.</source>
        <translation>Die Datei „%1“ hat sich geändert, während sie gelesen wurde.</translation>
    </message>
    <message>
        <source>The file “%1” could not be opened: %2.</source>
        <translation>Die Datei „%1“ konnte nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>Die Datei „%1“ konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The file “%1” is empty.</source>
        <translation>Die Datei „%1“ ist leer.</translation>
    </message>
    <message>
        <source>The import did not finish.</source>
        <translation>Der Import wurde nicht beendet.</translation>
    </message>
    <message>
        <source>The import into “%1” could not be finished; the next one will do so: %2</source>
        <translation>Der Import in „%1“ konnte nicht beendet werden; der nächste holt es nach: %2</translation>
    </message>
    <message>
        <source>The library “%1” lies in the files folder.</source>
        <translation>Die Bibliothek „%1“ liegt im Dateiordner.</translation>
    </message>
    <message>
        <source>The load failed.</source>
        <translation>Das Laden schlug fehl.</translation>
    </message>
    <message>
        <source>The load was cancelled.</source>
        <translation>Das Laden wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The manifest asks for “%1” to be removed, which is not its files folder.</source>
        <translation>Das Manifest verlangt, „%1“ zu entfernen; das ist nicht sein Dateiordner.</translation>
    </message>
    <message>
        <source>The manifest is damaged: %1</source>
        <translation>Das Manifest ist beschädigt: %1</translation>
    </message>
    <message>
        <source>The manifest names “%1”, which does not lie safely in its files folder.</source>
        <translation>Das Manifest nennt „%1“, das nicht sicher in seinem Dateiordner liegt.</translation>
    </message>
    <message>
        <source>The manifest “%1” could not be read: %2</source>
        <translation>Das Manifest „%1“ konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The manifest “%1” was not written whole, so nothing can be imported from it. Perhaps the disk is full.</source>
        <translation>Das Manifest „%1“ wurde nicht vollständig geschrieben, daher kann nichts daraus importiert werden. Vielleicht ist die Festplatte voll.</translation>
    </message>
    <message>
        <source>The network connection was lost.</source>
        <translation>Die Netzwerkverbindung ging verloren.</translation>
    </message>
    <message>
        <source>The note does not belong to a file of exported notes.</source>
        <translation>Die Notiz gehört zu keiner Datei mit exportierten Notizen.</translation>
    </message>
    <message>
        <source>The note's markup was malformed and has been repaired.</source>
        <translation>Das Markup der Notiz war fehlerhaft und wurde repariert.</translation>
    </message>
    <message>
        <source>The note's text could not be laid out and is missing: %1</source>
        <translation>Der Text der Notiz konnte nicht gesetzt werden und fehlt: %1</translation>
    </message>
    <message>
        <source>The note's text does not show the attachment “%1”; it was left out.</source>
        <translation>Der Text der Notiz zeigt den Anhang „%1“ nicht; er wurde weggelassen.</translation>
    </message>
    <message>
        <source>The notebook is not there any more.</source>
        <translation>Das Notizbuch ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The notebook “%1” holds more notes than can be listed.</source>
        <translation>Das Notizbuch „%1“ enthält mehr Notizen, als sich auflisten lassen.</translation>
    </message>
    <message>
        <source>The operation could not be completed. (%1 error %2.)</source>
        <translation>Der Vorgang konnte nicht abgeschlossen werden. (%1-Fehler %2.)</translation>
    </message>
    <message>
        <source>The original of “%1” is not at “%2”.</source>
        <translation>Das Original von „%1“ ist nicht bei „%2“.</translation>
    </message>
    <message>
        <source>The page could not be read.</source>
        <translation>Die Seite konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The page has more resources than are loaded.</source>
        <translation>Die Seite hat mehr Bestandteile, als geladen werden.</translation>
    </message>
    <message>
        <source>The page was loaded again; its attachment “%1” was left out.</source>
        <translation>Die Seite wurde neu geladen; ihr Anhang „%1“ wurde weggelassen.</translation>
    </message>
    <message>
        <source>The page was loaded again; the note's tasks were left out: %1.</source>
        <translation>Die Seite wurde neu geladen; die Aufgaben der Notiz wurden weggelassen: %1.</translation>
    </message>
    <message>
        <source>The page “%1” could not be opened.</source>
        <translation>Die Seite „%1“ konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The parser was aborted.</source>
        <translation>Der Parser wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The property list is damaged.</source>
        <translation>Die Eigenschaftsliste ist beschädigt.</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>Die Eigenschaftsliste ist zu tief verschachtelt.</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>Die Anfrage dauerte zu lange.</translation>
    </message>
    <message>
        <source>The resource is too large.</source>
        <translation>Der Bestandteil ist zu groß.</translation>
    </message>
    <message>
        <source>The response could not be decoded.</source>
        <translation>Die Antwort konnte nicht dekodiert werden.</translation>
    </message>
    <message>
        <source>The server gave a response that was not understood.</source>
        <translation>Die Antwort des Servers wurde nicht verstanden.</translation>
    </message>
    <message>
        <source>The server redirected to an address that cannot be loaded.</source>
        <translation>Der Server leitete an eine Adresse weiter, die nicht geladen werden kann.</translation>
    </message>
    <message>
        <source>The server sent no document.</source>
        <translation>Der Server sandte kein Dokument.</translation>
    </message>
    <message>
        <source>The setting could not be saved.</source>
        <translation>Die Einstellung konnte nicht gesichert werden.</translation>
    </message>
    <message>
        <source>The settings folder cannot be made.</source>
        <translation>Der Ordner für die Einstellungen kann nicht angelegt werden.</translation>
    </message>
    <message numerus="yes">
        <source>There are %Ln remarks on notes that came across.</source>
        <translation>
            <numerusform>Zu angekommenen Notizen gibt es %Ln Hinweis.</numerusform>
            <numerusform>Zu angekommenen Notizen gibt es %Ln Hinweise.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no ENEX file to import.</source>
        <translation>Es gibt keine ENEX-Datei zu importieren.</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>Die Datei darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>There is no session bus through which %1 could be reached.</source>
        <translation>Es gibt keinen Sitzungsbus, über den %1 erreichbar wäre.</translation>
    </message>
    <message>
        <source>There were too many redirects.</source>
        <translation>Es gab zu viele Weiterleitungen.</translation>
    </message>
    <message>
        <source>They are added at the note's end. A web clip with such a document becomes a note.</source>
        <translation>Sie werden am Ende der Notiz angefügt. Eine ausgeschnittene Seite mit einem solchen Dokument wird zur Notiz.</translation>
    </message>
    <message>
        <source>This is no archived colour.</source>
        <translation>Das ist keine archivierte Farbe.</translation>
    </message>
    <message>
        <source>Times in ENEX files are in UTC</source>
        <translation>Zeiten in ENEX-Dateien sind in UTC</translation>
    </message>
    <message>
        <source>To keep all of it, import the file again with the option “Read files of today's Evernote whole” (setting ModernENEX).</source>
        <translation>Um alles zu behalten, importieren Sie die Datei noch einmal mit der Option „Dateien des heutigen Evernote vollständig lesen“ (Einstellung ModernENEX).</translation>
    </message>
    <message>
        <source>Two keys of a dictionary cannot be told apart.</source>
        <translation>Zwei Schlüssel eines Verzeichnisses sind nicht zu unterscheiden.</translation>
    </message>
    <message>
        <source>Unable to create file wrapper for file at path: %@</source>
        <translation>Für die Datei am folgenden Ort konnte kein Paket erstellt werden: %@</translation>
    </message>
    <message>
        <source>Unable to create the temporary directory to export files.</source>
        <translation>Der temporäre Ordner für die exportierten Dateien kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Unable to find the Evernote application.</source>
        <translation>Das Programm Evernote wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>Standard verwenden</translation>
    </message>
    <message>
        <source>Vupuge</source>
        <translation>Vupuge</translation>
    </message>
    <message>
        <source>Vupuge %1</source>
        <translation>Vupuge %1</translation>
    </message>
    <message>
        <source>Wait until it has finished and try again.</source>
        <translation>Warten Sie, bis er beendet ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Web Page</source>
        <translation>Webseite</translation>
    </message>
    <message>
        <source>Where nothing is chosen here, the choices made in Quillery hold.</source>
        <translation>Wo hier nichts gewählt ist, gilt, was in Quillery eingestellt ist.</translation>
    </message>
    <message>
        <source>Words are marked by @ or &amp;, and by the characters below. Otherwise every word of a comment without marks counts as a tag.</source>
        <translation>Wörter werden mit @ oder &amp; und mit den Zeichen unten markiert. Sonst gilt jedes Wort eines Kommentars ohne Markierung als Schlagwort.</translation>
    </message>
    <message>
        <source>Write a detailed log</source>
        <translation>Ausführliches Protokoll schreiben</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>Null KB</translation>
    </message>
    <message>
        <source>[Missing Attachment]</source>
        <translation>[Fehlender Anhang]</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>angenommen</translation>
    </message>
    <message>
        <source>bad gateway</source>
        <translation>fehlerhaftes Gateway</translation>
    </message>
    <message>
        <source>bad request</source>
        <translation>fehlerhafte Anfrage</translation>
    </message>
    <message>
        <source>client error</source>
        <translation>Client-Fehler</translation>
    </message>
    <message>
        <source>conflict</source>
        <translation>Konflikt</translation>
    </message>
    <message>
        <source>created</source>
        <translation>angelegt</translation>
    </message>
    <message>
        <source>expectation failed</source>
        <translation>Erwartung nicht erfüllt</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>verboten</translation>
    </message>
    <message>
        <source>found</source>
        <translation>gefunden</translation>
    </message>
    <message>
        <source>gateway timed out</source>
        <translation>Gateway antwortete nicht</translation>
    </message>
    <message>
        <source>informational</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>internal server error</source>
        <translation>interner Serverfehler</translation>
    </message>
    <message>
        <source>it has no folder “%1”, which items belong to.</source>
        <translation>es hat keinen Ordner „%1“, zu dem Objekte gehören.</translation>
    </message>
    <message>
        <source>it holds no entities.</source>
        <translation>es enthält keine Einträge.</translation>
    </message>
    <message>
        <source>its records are not in a dictionary.</source>
        <translation>seine Datensätze stehen in keinem Verzeichnis.</translation>
    </message>
    <message>
        <source>length required</source>
        <translation>Länge erforderlich</translation>
    </message>
    <message>
        <source>method not allowed</source>
        <translation>Methode nicht erlaubt</translation>
    </message>
    <message>
        <source>moved permanently</source>
        <translation>dauerhaft verschoben</translation>
    </message>
    <message>
        <source>no content</source>
        <translation>kein Inhalt</translation>
    </message>
    <message>
        <source>no error</source>
        <translation>kein Fehler</translation>
    </message>
    <message>
        <source>no longer exists</source>
        <translation>existiert nicht mehr</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
    <message>
        <source>not modified</source>
        <translation>nicht verändert</translation>
    </message>
    <message>
        <source>payment required</source>
        <translation>Zahlung erforderlich</translation>
    </message>
    <message>
        <source>precondition failed</source>
        <translation>Vorbedingung nicht erfüllt</translation>
    </message>
    <message>
        <source>proxy authentication required</source>
        <translation>Anmeldung am Proxy erforderlich</translation>
    </message>
    <message>
        <source>redirected</source>
        <translation>weitergeleitet</translation>
    </message>
    <message>
        <source>request timed out</source>
        <translation>Anfrage dauerte zu lange</translation>
    </message>
    <message>
        <source>request too large</source>
        <translation>Anfrage zu groß</translation>
    </message>
    <message>
        <source>requested URL too long</source>
        <translation>angefragte URL zu lang</translation>
    </message>
    <message>
        <source>requested range not satisfiable</source>
        <translation>angefragter Bereich nicht erfüllbar</translation>
    </message>
    <message>
        <source>server error</source>
        <translation>Serverfehler</translation>
    </message>
    <message>
        <source>service unavailable</source>
        <translation>Dienst nicht verfügbar</translation>
    </message>
    <message>
        <source>success</source>
        <translation>Erfolg</translation>
    </message>
    <message>
        <source>too many requests</source>
        <translation>zu viele Anfragen</translation>
    </message>
    <message>
        <source>unacceptable</source>
        <translation>nicht akzeptabel</translation>
    </message>
    <message>
        <source>unauthorized</source>
        <translation>nicht autorisiert</translation>
    </message>
    <message>
        <source>unimplemented</source>
        <translation>nicht implementiert</translation>
    </message>
    <message>
        <source>unsupported media type</source>
        <translation>nicht unterstützter Medientyp</translation>
    </message>
    <message>
        <source>unsupported version</source>
        <translation>nicht unterstützte Version</translation>
    </message>
    <message>
        <source>“%1” cannot be said to %2.</source>
        <translation>„%1“ lässt sich %2 nicht mitteilen.</translation>
    </message>
    <message>
        <source>“%1” cannot be taken twice.</source>
        <translation>„%1“ kann nicht zweimal übernommen werden.</translation>
    </message>
    <message>
        <source>“%1” could not be imported: %2</source>
        <translation>„%1“ konnte nicht importiert werden: %2</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <translation>„%1“ konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2.</source>
        <translation>„%1“ konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>“%1” holds no catalogue that this version reads.</source>
        <translation>„%1“ enthält kein Verzeichnis, das diese Version liest.</translation>
    </message>
    <message>
        <source>“%1” is gone: its files were removed before the import was finished.</source>
        <translation>„%1“ ist verschwunden: Die Dateien wurden entfernt, bevor der Import beendet war.</translation>
    </message>
    <message>
        <source>“%1” is not UTF-8 text.</source>
        <translation>„%1“ ist kein UTF-8-Text.</translation>
    </message>
    <message>
        <source>“%1” is not a folder's record.</source>
        <translation>„%1“ ist kein Datensatz eines Ordners.</translation>
    </message>
    <message>
        <source>“%1” is not an alias.</source>
        <translation>„%1“ ist kein Alias.</translation>
    </message>
    <message>
        <source>“%1” is not an import manifest.</source>
        <translation>„%1“ ist kein Import-Manifest.</translation>
    </message>
    <message>
        <source>“%1” is not an item's record.</source>
        <translation>„%1“ ist kein Datensatz eines Objekts.</translation>
    </message>
    <message>
        <source>“%1” is not the name of a file in “%2”.</source>
        <translation>„%1“ ist kein Name einer Datei in „%2“.</translation>
    </message>
</context>
</TS>
