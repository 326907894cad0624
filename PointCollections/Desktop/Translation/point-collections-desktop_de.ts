<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QProgressDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>Projects (*.tkpc)</source>
        <translation>Projekte (*.tkpc)</translation>
    </message>
    <message>
        <source>Tables (*.csv)</source>
        <translation>Tabellen (*.csv)</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Bilder (*.png)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Projects and points (*.tkpc *.csv);;All files (*)</source>
        <translation>Projekte und Punkte (*.tkpc *.csv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save the changes in %1?</source>
        <translation>Die Änderungen in %1 speichern?</translation>
    </message>
    <message>
        <source>Otherwise the changes since the last time are lost.</source>
        <translation>Sonst gehen die Änderungen seit dem letzten Mal verloren.</translation>
    </message>
    <message>
        <source>The changes in %1 were not saved the last time.</source>
        <translation>Die Änderungen in %1 wurden das letzte Mal nicht gespeichert.</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>%1 has been changed by another program. Overwrite it?</source>
        <translation>%1 wurde von einem anderen Programm geändert. Überschreiben?</translation>
    </message>
    <message>
        <source>%1 is there already. Overwrite it?</source>
        <translation>%1 gibt es schon. Überschreiben?</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>Überschreiben</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::ColumnsDialog</name>
    <message>
        <source>The first &amp;row has the names of the columns</source>
        <translation>Die erste Z&amp;eile nennt die Spalten</translation>
    </message>
    <message>
        <source>Columns of a table</source>
        <translation>Spalten einer Tabelle</translation>
    </message>
    <message>
        <source>Comma</source>
        <translation>Komma</translation>
    </message>
    <message>
        <source>Semicolon</source>
        <translation>Semikolon</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>&amp;Separator:</source>
        <translation>&amp;Trennzeichen:</translation>
    </message>
    <message>
        <source>&amp;Collection:</source>
        <translation>&amp;Sammlung:</translation>
    </message>
    <message>
        <source>&amp;x:</source>
        <translation>&amp;x:</translation>
    </message>
    <message>
        <source>&amp;y:</source>
        <translation>&amp;y:</translation>
    </message>
    <message>
        <source>&amp;z:</source>
        <translation>&amp;z:</translation>
    </message>
    <message>
        <source>&amp;Group:</source>
        <translation>&amp;Gruppe:</translation>
    </message>
    <message>
        <source>&amp;Place:</source>
        <translation>&amp;Platz:</translation>
    </message>
    <message>
        <source>The first rows of the table</source>
        <translation>Die ersten Zeilen der Tabelle</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>Choose one</source>
        <translation>Bitte wählen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Choose the columns for collection, x, y and z.</source>
        <translation>Wählen Sie die Spalten für Sammlung, x, y und z.</translation>
    </message>
    <message>
        <source>A column is chosen twice. Choose each one once.</source>
        <translation>Eine Spalte ist zweimal gewählt. Wählen Sie jede nur einmal.</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::FileCommands</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>%1 is not there any more. The list of recent files no longer has it.</source>
        <translation>%1 gibt es nicht mehr. In der Liste der letzten Dateien steht sie nicht mehr.</translation>
    </message>
    <message>
        <source>Opening %1 …</source>
        <translation>%1 wird geöffnet …</translation>
    </message>
    <message>
        <source>Unsaved work of an earlier run cannot be recovered.</source>
        <translation>Ungespeicherte Arbeit aus einem früheren Lauf kann nicht wiederhergestellt werden.</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>%1 kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Saving %1 …</source>
        <translation>%1 wird gespeichert …</translation>
    </message>
    <message>
        <source>The groups cannot be exported.</source>
        <translation>Die Gruppen können nicht exportiert werden.</translation>
    </message>
    <message>
        <source>The picture cannot be exported.</source>
        <translation>Das Bild kann nicht exportiert werden.</translation>
    </message>
    <message>
        <source>Writing %1 …</source>
        <translation>%1 wird geschrieben …</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::GroupsPanel</name>
    <message>
        <source>%1 groups and %2 elements match</source>
        <translation>%1 Gruppen und %2 Elemente passen</translation>
    </message>
    <message>
        <source>Filter by name</source>
        <translation>Nach Namen filtern</translation>
    </message>
    <message>
        <source>Shows the groups and elements whose names contain the text.</source>
        <translation>Zeigt die Gruppen und Elemente, deren Namen den Text enthalten.</translation>
    </message>
    <message>
        <source>Numbers of groups and elements</source>
        <translation>Anzahl der Gruppen und Elemente</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Filter leeren</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::MainWindow</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Opened</source>
        <translation>Geöffnet</translation>
    </message>
    <message>
        <source>Numbers of elements, points and groups</source>
        <translation>Anzahl der Elemente, Punkte und Gruppen</translation>
    </message>
    <message>
        <source>That did not work.</source>
        <translation>Das hat nicht geklappt.</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::Menus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>Export &amp;groups…</source>
        <translation>&amp;Gruppen exportieren …</translation>
    </message>
    <message>
        <source>Export &amp;picture…</source>
        <translation>&amp;Bild exportieren …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Groups</source>
        <translation>&amp;Gruppen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>&amp;Turn points</source>
        <translation>Punkte &amp;drehen</translation>
    </message>
    <message>
        <source>&amp;Select by rectangle</source>
        <translation>Mit &amp;Rechteck auswählen</translation>
    </message>
    <message>
        <source>Show &amp;all</source>
        <translation>&amp;Alles zeigen</translation>
    </message>
    <message>
        <source>&amp;Widen groups</source>
        <translation>Gruppen &amp;breiter</translation>
    </message>
    <message>
        <source>&amp;Narrow groups</source>
        <translation>Gruppen &amp;schmaler</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>&amp;Leisten</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>As the &amp;system</source>
        <translation>Wie das &amp;System</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::PointsView</name>
    <message>
        <source>Points in space</source>
        <translation>Punkte im Raum</translation>
    </message>
    <message>
        <source>Arrow keys turn the points, with Shift they move them; plus and minus zoom, Home shows all. Ctrl+A selects all, Escape nothing.</source>
        <translation>Pfeiltasten drehen die Punkte, mit Umschalt verschieben sie sie; Plus und Minus vergrößern und verkleinern, Pos1 zeigt alles. Strg+A wählt alles aus, Esc nichts.</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::RecentFiles</name>
    <message>
        <source>No files yet</source>
        <translation>Noch keine Dateien</translation>
    </message>
</context>
<context>
    <name>Tarvik::PointCollections::Workspace</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>%1 elements, %2 points, %3 groups, %4 elements in no group</source>
        <translation>%1 Elemente, %2 Punkte, %3 Gruppen, %4 Elemente in keiner Gruppe</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Sorts point collections into named groups.</source>
        <translation>Ordnet Punktsammlungen in benannte Gruppen.</translation>
    </message>
    <message>
        <source>Write a picture of the window to a PNG file, and end.</source>
        <translation>Schreibt ein Bild des Fensters in eine PNG-Datei und endet.</translation>
    </message>
    <message>
        <source>A project (.tkpc) or a file of points (.csv).</source>
        <translation>Ein Projekt (.tkpc) oder eine Datei mit Punkten (.csv).</translation>
    </message>
</context>
</TS>
