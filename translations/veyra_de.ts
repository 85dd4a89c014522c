<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Phrase</name>
    <message>
        <source>The file is not a text that can be read.</source>
        <translation>Die Datei ist kein lesbarer Text.</translation>
    </message>
    <message>
        <source>Its first line must be the name of a folder. Correct it with a text editor.</source>
        <translation>Ihre erste Zeile muss der Name eines Ordners sein. Berichtigen Sie sie mit einem Texteditor.</translation>
    </message>
    <message>
        <source>A line of the file is too long to be read.</source>
        <translation>Eine Zeile der Datei ist zu lang, um gelesen zu werden.</translation>
    </message>
    <message>
        <source>The file ends where another line is needed.</source>
        <translation>Die Datei endet, wo noch eine Zeile gebraucht wird.</translation>
    </message>
    <message>
        <source>The file cannot be written.</source>
        <translation>Die Datei kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>See whether the disk is full and whether the folder may be written to.</source>
        <translation>Sehen Sie nach, ob der Datenträger voll ist und ob in den Ordner geschrieben werden darf.</translation>
    </message>
    <message>
        <source>The file is missing and cannot be made: %1.</source>
        <translation>Die Datei fehlt und kann nicht angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Make it with a text editor: its first line must be the name of the folder that holds the bookings.</source>
        <translation>Legen Sie sie mit einem Texteditor an: Ihre erste Zeile muss der Name des Ordners mit den Buchungen sein.</translation>
    </message>
    <message>
        <source>The file is empty and cannot be written: %1.</source>
        <translation>Die Datei ist leer und kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>Write it with a text editor: its first line must be the name of the folder that holds the bookings.</source>
        <translation>Schreiben Sie sie mit einem Texteditor: Ihre erste Zeile muss der Name des Ordners mit den Buchungen sein.</translation>
    </message>
    <message>
        <source>The folder for your calendar cannot be made: %1.</source>
        <translation>Der Ordner für Ihren Kalender kann nicht angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Check the rights of the folders above it, and start the calendar again.</source>
        <translation>Prüfen Sie die Rechte der Ordner darüber, und starten Sie den Kalender neu.</translation>
    </message>
    <message>
        <source>An empty calendar could not be made there. %1</source>
        <translation>Dort konnte kein leerer Kalender angelegt werden. %1</translation>
    </message>
    <message>
        <source>Check that the disk has room, and start the calendar again.</source>
        <translation>Prüfen Sie, ob auf dem Datenträger Platz ist, und starten Sie den Kalender neu.</translation>
    </message>
    <message>
        <source>The file cannot be made: %1.</source>
        <translation>Die Datei kann nicht angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Welcome to Veyra Calendar.</source>
        <translation>Willkommen bei Veyra Calendar.</translation>
    </message>
    <message>
        <source>Your calendar is still empty. To add the first facility, a room for instance, type its name into the box at the top right and press Enter.</source>
        <translation>Ihr Kalender ist noch leer. Um die erste Anlage hinzuzufügen, zum Beispiel einen Raum, geben Sie ihren Namen in das Feld oben rechts ein und drücken die Eingabetaste.</translation>
    </message>
    <message>
        <source>The calendar lies in %1.</source>
        <translation>Der Kalender liegt in %1.</translation>
    </message>
    <message>
        <source>To try a sample first, run</source>
        <translation>Um zuerst ein Beispiel auszuprobieren, starten Sie</translation>
    </message>
    <message>
        <source>and write the name of that folder into the first line of</source>
        <translation>und schreiben den Namen jenes Ordners in die erste Zeile von</translation>
    </message>
    <message>
        <source>%1 on %2, since %3</source>
        <translation>%1 an %2, seit %3</translation>
    </message>
    <message>
        <source>This calendar is open on another computer:</source>
        <translation>Dieser Kalender ist auf einem anderen Computer geöffnet:</translation>
    </message>
    <message>
        <source>Open it here as well?</source>
        <translation>Soll er auch hier geöffnet werden?</translation>
    </message>
    <message>
        <source>Two computers that write to one calendar file in a shared folder can damage it. If the other one was switched off without closing its calendar, answer Yes.</source>
        <translation>Zwei Computer, die in dieselbe Kalenderdatei in einem gemeinsamen Ordner schreiben, können sie beschädigen. Wurde der andere ausgeschaltet, ohne dass sein Kalender geschlossen wurde, antworten Sie mit Yes.</translation>
    </message>
    <message>
        <source>There is no web browser on this machine that can open %1</source>
        <translation>Auf diesem Rechner gibt es keinen Webbrowser, der diese Adresse öffnen kann: %1</translation>
    </message>
    <message>
        <source>free</source>
        <translation>frei</translation>
    </message>
    <message>
        <source>&lt;= &amp;Previous</source>
        <translation>&lt;= &amp;Voriger Tag</translation>
    </message>
    <message>
        <source>&amp;Next =&gt;</source>
        <translation>&amp;Nächster Tag =&gt;</translation>
    </message>
    <message>
        <source>Day board</source>
        <translation>Tagesübersicht</translation>
    </message>
    <message>
        <source>Day Board: %1</source>
        <translation>Tagesübersicht: %1</translation>
    </message>
    <message>
        <source>There is no facility yet.</source>
        <translation>Es gibt noch keine Anlage.</translation>
    </message>
    <message>
        <source>A click or Enter opens the day of the facility. Page Down and Page Up turn the days.</source>
        <translation>Ein Klick oder die Eingabetaste öffnet den Tag der Anlage. Bild ab und Bild auf blättern die Tage.</translation>
    </message>
    <message>
        <source>taken by %1</source>
        <translation>belegt von %1</translation>
    </message>
    <message>
        <source>taken by %1 and %2</source>
        <translation>belegt von %1 und %2</translation>
    </message>
    <message>
        <source>taken by %1 and %2 others</source>
        <translation>belegt von %1 und %2 weiteren</translation>
    </message>
    <message>
        <source>free on this day</source>
        <translation>an diesem Tag frei</translation>
    </message>
    <message>
        <source>the only date left of a series</source>
        <translation>der einzige verbliebene Termin einer Serie</translation>
    </message>
    <message>
        <source>one of %1 dates until %2</source>
        <translation>einer von %1 Terminen bis %2</translation>
    </message>
    <message>
        <source>Time slots</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Bookings on %1</source>
        <translation>Buchungen am %1</translation>
    </message>
    <message>
        <source>Undone. %1</source>
        <translation>Rückgängig gemacht. %1</translation>
    </message>
    <message>
        <source>Undo (Ctrl+Z)</source>
        <translation>Ctrl+Z: zurück</translation>
    </message>
    <message>
        <source>the first %1</source>
        <translation>die ersten %1</translation>
    </message>
    <message>
        <source>Type part of a guest&apos;s or an event&apos;s name.</source>
        <translation>Geben Sie einen Teil des Namens eines Gastes oder einer Veranstaltung ein.</translation>
    </message>
    <message>
        <source>Looking ...</source>
        <translation>Suche läuft ...</translation>
    </message>
    <message>
        <source>No booking has such a name.</source>
        <translation>Keine Buchung hat einen solchen Namen.</translation>
    </message>
    <message>
        <source>To come: %1. Past: %2. Enter opens the day.</source>
        <translation>Künftig: %1. Vergangen: %2. Die Eingabetaste öffnet den Tag.</translation>
    </message>
    <message>
        <source>Find a Booking</source>
        <translation>Buchung suchen</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Bookings</source>
        <translation>Buchungen</translation>
    </message>
    <message>
        <source>Past</source>
        <translation>Vergangen</translation>
    </message>
    <message>
        <source>midnight</source>
        <translation>Mitternacht</translation>
    </message>
    <message>
        <source>Tick at least one facility.</source>
        <translation>Kreuzen Sie mindestens eine Anlage an.</translation>
    </message>
    <message>
        <source>Tick at least one weekday.</source>
        <translation>Kreuzen Sie mindestens einen Wochentag an.</translation>
    </message>
    <message>
        <source>The hours end before they begin.</source>
        <translation>Die Uhrzeiten enden, bevor sie beginnen.</translation>
    </message>
    <message>
        <source>%1 do not fit between %2 and %3.</source>
        <translation>%1 passen nicht zwischen %2 und %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date. Enter it as %2.</source>
        <translation>„%1“ ist kein Datum. Geben Sie es in der Form %2 ein.</translation>
    </message>
    <message>
        <source>The dates end before they begin.</source>
        <translation>Die Tage enden, bevor sie beginnen.</translation>
    </message>
    <message>
        <source>None of these dates falls on a ticked weekday.</source>
        <translation>Keiner dieser Tage fällt auf einen angekreuzten Wochentag.</translation>
    </message>
    <message>
        <source>Nothing is free then for %1.</source>
        <translation>Dann ist nichts für %1 frei.</translation>
    </message>
    <message>
        <source>The first %1; there are more. Enter opens the day.</source>
        <translation>Die ersten %1; es gibt noch mehr. Die Eingabetaste öffnet den Tag.</translation>
    </message>
    <message>
        <source>Free times: %1. Enter opens the day.</source>
        <translation>Freie Zeiten: %1. Die Eingabetaste öffnet den Tag.</translation>
    </message>
    <message>
        <source>Free Time</source>
        <translation>Freie Zeit</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>&amp;Dauer</translation>
    </message>
    <message>
        <source>Not before</source>
        <translation>Nicht vor</translation>
    </message>
    <message>
        <source>Not after</source>
        <translation>Nicht nach</translation>
    </message>
    <message>
        <source>12:00 Midnight</source>
        <translation>12:00 Mitternacht</translation>
    </message>
    <message>
        <source>&amp;between</source>
        <translation>&amp;zwischen</translation>
    </message>
    <message>
        <source>an&amp;d</source>
        <translation>&amp;und</translation>
    </message>
    <message>
        <source>Weekdays</source>
        <translation>Wochentage</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>V&amp;om</translation>
    </message>
    <message>
        <source>&amp;to</source>
        <translation>&amp;bis</translation>
    </message>
    <message>
        <source>First date</source>
        <translation>Erster Tag</translation>
    </message>
    <message>
        <source>Last date</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>Facilities</source>
        <translation>Anlagen</translation>
    </message>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>All facilities</source>
        <translation>Alle Anlagen</translation>
    </message>
    <message>
        <source>Free times</source>
        <translation>Freie Zeiten</translation>
    </message>
    <message>
        <source>What the windows show could not be read anew and may be old: look again before you rely on it.</source>
        <translation>Was die Fenster zeigen, konnte nicht neu gelesen werden und ist vielleicht veraltet: Sehen Sie noch einmal nach, bevor Sie sich darauf verlassen.</translation>
    </message>
    <message>
        <source>An internal error has stopped what the program was doing.</source>
        <translation>Ein innerer Fehler hat das Programm bei seiner Arbeit unterbrochen.</translation>
    </message>
    <message>
        <source>What was saved before is kept. If this happens again, close the program and start it anew.</source>
        <translation>Was vorher gespeichert wurde, bleibt erhalten. Geschieht dies wieder, schließen Sie das Programm und starten es neu.</translation>
    </message>
    <message>
        <source>Open the calendar file anew now?</source>
        <translation>Soll die Kalenderdatei jetzt neu geöffnet werden?</translation>
    </message>
    <message>
        <source>Date, for example 3/15/2014 or March 15</source>
        <translation>Datum, zum Beispiel 3/15/2014 oder March 15</translation>
    </message>
    <message>
        <source>Go to a Date</source>
        <translation>Gehe zu Datum</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date.</source>
        <translation>„%1“ ist kein Datum.</translation>
    </message>
    <message>
        <source>Enter it again, for example 3/15/2014.</source>
        <translation>Geben Sie es noch einmal ein, zum Beispiel 3/15/2014.</translation>
    </message>
    <message>
        <source>The facility %1 is not there any more.</source>
        <translation>Die Anlage %1 gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>Click on the month to get the buttons back, then print again</source>
        <translation>Klicken Sie auf den Monat, damit die Schaltflächen wieder da sind, und drucken Sie noch einmal</translation>
    </message>
    <message>
        <source>The first one is shown now: %1.</source>
        <translation>Jetzt wird die erste gezeigt: %1.</translation>
    </message>
    <message>
        <source>There is no other one.</source>
        <translation>Es gibt keine andere.</translation>
    </message>
    <message>
        <source>The facility %1 was deleted at another desk, with all its bookings.</source>
        <translation>Die Anlage %1 wurde an einem anderen Arbeitsplatz mit allen ihren Buchungen gelöscht.</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Go to Date...</source>
        <translation>Gehe zu Datum ...</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Suchen ...</translation>
    </message>
    <message>
        <source>Free Time...</source>
        <translation>Freie Zeit ...</translation>
    </message>
    <message>
        <source>Day Board</source>
        <translation>Tagesübersicht</translation>
    </message>
    <message>
        <source>Undo...</source>
        <translation>Rückgängig ...</translation>
    </message>
    <message>
        <source>Print Month...</source>
        <translation>Monat drucken ...</translation>
    </message>
    <message>
        <source>Print Week...</source>
        <translation>Woche drucken ...</translation>
    </message>
    <message>
        <source>Facility</source>
        <translation>Anlage</translation>
    </message>
    <message>
        <source>Type the name of the first one into the box at the top and press Enter.</source>
        <translation>Geben Sie den Namen der ersten in das Feld oben ein und drücken Sie die Eingabetaste.</translation>
    </message>
    <message>
        <source>1 date</source>
        <translation>1 Termin</translation>
    </message>
    <message>
        <source>%1 dates</source>
        <translation>%1 Termine</translation>
    </message>
    <message>
        <source>%1, none of them taken</source>
        <translation>%1, keiner davon belegt</translation>
    </message>
    <message>
        <source>%1, %2 of them taken</source>
        <translation>%1, davon belegt: %2</translation>
    </message>
    <message>
        <source>%1, counting those taken ...</source>
        <translation>%1, die belegten werden gezählt ...</translation>
    </message>
    <message>
        <source>Is this meant? It ends in %1.</source>
        <translation>Ist das so gemeint? Der letzte ist im Jahr %1.</translation>
    </message>
    <message>
        <source>Is this meant? So many dates.</source>
        <translation>Ist das so gemeint? So viele Termine.</translation>
    </message>
    <message>
        <source>Choose a time in the day first to count those taken.</source>
        <translation>Um belegte zu zählen, wählen Sie zuerst im Tag eine Zeit.</translation>
    </message>
    <message>
        <source>Counted for %1, the time chosen last.</source>
        <translation>Gezählt für %1, die zuletzt gewählte Zeit.</translation>
    </message>
    <message>
        <source>No dates: they end before they begin.</source>
        <translation>Keine Termine: Sie enden, bevor sie beginnen.</translation>
    </message>
    <message>
        <source>No dates: none of them falls on a ticked weekday.</source>
        <translation>Keine Termine: Keiner fällt auf einen angekreuzten Wochentag.</translation>
    </message>
    <message>
        <source>Print again</source>
        <translation>Drucken Sie noch einmal</translation>
    </message>
    <message>
        <source>Print Complete.</source>
        <translation>Der Druck ist fertig.</translation>
    </message>
    <message>
        <source>The printer &quot;%1&quot; is no longer there.</source>
        <translation>Den Drucker „%1“ gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>%1 on another printer, or into a PDF file.</source>
        <translation>%1, auf einem anderen Drucker oder in eine PDF-Datei.</translation>
    </message>
    <message>
        <source>The printer &quot;%1&quot; has not taken the page: %2.</source>
        <translation>Der Drucker „%1“ hat die Seite nicht angenommen: %2.</translation>
    </message>
    <message>
        <source>%1, perhaps on another printer.</source>
        <translation>%1, vielleicht auf einem anderen Drucker.</translation>
    </message>
    <message>
        <source>The file cannot be written: %1.</source>
        <translation>Die Datei kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>See whether the disk is full and whether the folder may be written to. %1.</source>
        <translation>Sehen Sie nach, ob der Datenträger voll ist und ob in den Ordner geschrieben werden darf. %1.</translation>
    </message>
    <message>
        <source>it cannot be started</source>
        <translation>er kann nicht begonnen werden</translation>
    </message>
    <message>
        <source>Print background</source>
        <translation>Hintergrund drucken</translation>
    </message>
    <message>
        <source>Without it the paper stays white, and no text is pale</source>
        <translation>Ohne ihn bleibt das Papier weiß, und kein Text ist blass</translation>
    </message>
    <message>
        <source>Color %1</source>
        <translation>Farbe %1</translation>
    </message>
    <message>
        <source>Matching names</source>
        <translation>Passende Namen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Waiting for another program …</source>
        <translation>Warten auf ein anderes Programm …</translation>
    </message>
    <message>
        <source>Booking ...</source>
        <translation>Es wird gebucht ...</translation>
    </message>
    <message>
        <source>dates are booked.</source>
        <translation>Terminen sind gebucht.</translation>
    </message>
    <message>
        <source>Left out because something else is booked then: </source>
        <translation>Ausgelassen, weil dann etwas anderes gebucht ist: </translation>
    </message>
    <message>
        <source>Continue books the other dates, as a part of the same group.</source>
        <translation>Continue bucht die übrigen Termine als Teil derselben Gruppe.</translation>
    </message>
    <message>
        <source>Undo deletes the bookings that were made.</source>
        <translation>Undo löscht die angelegten Buchungen.</translation>
    </message>
    <message>
        <source>The bookings that were made have been deleted again.</source>
        <translation>Die angelegten Buchungen wurden wieder gelöscht.</translation>
    </message>
    <message>
        <source>Deleting bookings ...</source>
        <translation>Buchungen werden gelöscht ...</translation>
    </message>
    <message>
        <source>bookings are deleted.</source>
        <translation>Buchungen sind gelöscht.</translation>
    </message>
    <message>
        <source>Continue deletes the other bookings of the group.</source>
        <translation>Continue löscht die übrigen Buchungen der Gruppe.</translation>
    </message>
    <message>
        <source>Undo puts the deleted bookings back.</source>
        <translation>Undo holt die gelöschten Buchungen zurück.</translation>
    </message>
    <message>
        <source>The deleted bookings have been put back.</source>
        <translation>Die gelöschten Buchungen wurden zurückgeholt.</translation>
    </message>
    <message>
        <source>bookings are deleted; the facility is still there.</source>
        <translation>Buchungen sind gelöscht; die Anlage ist noch da.</translation>
    </message>
    <message>
        <source>Continue deletes the other bookings and the facility.</source>
        <translation>Continue löscht die übrigen Buchungen und die Anlage.</translation>
    </message>
    <message>
        <source>the facility</source>
        <translation>die Anlage</translation>
    </message>
    <message>
        <source>The facility is deleted, but no other one could be picked.</source>
        <translation>Die Anlage ist gelöscht, aber es konnte keine andere gewählt werden.</translation>
    </message>
    <message>
        <source>Bookings: %1, of these today or later: %2</source>
        <translation>Buchungen: %1, davon heute oder später: %2</translation>
    </message>
    <message>
        <source>Do you want to undo the last booking?</source>
        <translation>Möchten Sie die letzte Buchung rückgängig machen?</translation>
    </message>
    <message>
        <source>The last booking cannot be undone. Nothing was changed.</source>
        <translation>Die letzte Buchung kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Do you want to undo the last series of bookings?</source>
        <translation>Möchten Sie die letzte Serie von Buchungen rückgängig machen?</translation>
    </message>
    <message>
        <source>The last series of bookings cannot be undone. Nothing was changed.</source>
        <translation>Die letzte Serie von Buchungen kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Do you want to undo the deletion of a booking?</source>
        <translation>Möchten Sie das Löschen einer Buchung rückgängig machen?</translation>
    </message>
    <message>
        <source>The deletion of a booking cannot be undone. Nothing was changed.</source>
        <translation>Das Löschen einer Buchung kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Do you want to undo the deletion of a series of bookings?</source>
        <translation>Möchten Sie das Löschen einer Serie von Buchungen rückgängig machen?</translation>
    </message>
    <message>
        <source>The deletion of a series of bookings cannot be undone. Nothing was changed.</source>
        <translation>Das Löschen einer Serie von Buchungen kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Do you want to undo the renaming of a booking?</source>
        <translation>Möchten Sie das Umbenennen einer Buchung rückgängig machen?</translation>
    </message>
    <message>
        <source>The renaming of a booking cannot be undone. Nothing was changed.</source>
        <translation>Das Umbenennen einer Buchung kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Do you want to undo the renaming of a series of bookings?</source>
        <translation>Möchten Sie das Umbenennen einer Serie von Buchungen rückgängig machen?</translation>
    </message>
    <message>
        <source>The renaming of a series of bookings cannot be undone. Nothing was changed.</source>
        <translation>Das Umbenennen einer Serie von Buchungen kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Do you want to undo the deletion of a facility?</source>
        <translation>Möchten Sie das Löschen einer Anlage rückgängig machen?</translation>
    </message>
    <message>
        <source>The deletion of a facility cannot be undone. Nothing was changed.</source>
        <translation>Das Löschen einer Anlage kann nicht rückgängig gemacht werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Booked: %1</source>
        <translation>Gebucht: %1</translation>
    </message>
    <message>
        <source>Deleted: %1</source>
        <translation>Gelöscht: %1</translation>
    </message>
    <message>
        <source>Renamed: %1</source>
        <translation>Umbenannt: %1</translation>
    </message>
    <message>
        <source>%1 is taken away.</source>
        <translation>Wird weggenommen: %1.</translation>
    </message>
    <message>
        <source>%1 comes back.</source>
        <translation>Kommt zurück: %1.</translation>
    </message>
    <message>
        <source>%1 is called %2 again.</source>
        <translation>Heißt wieder %2: %1.</translation>
    </message>
    <message>
        <source>... and %1 more.</source>
        <translation>... und %1 weitere.</translation>
    </message>
    <message>
        <source>%1, with 1 booking</source>
        <translation>%1, mit 1 Buchung</translation>
    </message>
    <message>
        <source>%1, with %2 bookings</source>
        <translation>%1, mit %2 Buchungen</translation>
    </message>
    <message>
        <source>There is nothing to undo.</source>
        <translation>Es gibt nichts rückgängig zu machen.</translation>
    </message>
    <message>
        <source>%1 dates, %2</source>
        <translation>%1 Termine, %2</translation>
    </message>
    <message>
        <source>Entry %1 of the journal cannot be read.</source>
        <translation>Eintrag %1 des Journals kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Nothing was changed. Restore a backup instead.</source>
        <translation>Es wurde nichts geändert. Spielen Sie stattdessen eine Sicherungskopie zurück.</translation>
    </message>
    <message>
        <source>no facility (%1)</source>
        <translation>keine Anlage (%1)</translation>
    </message>
    <message>
        <source>the facility %1</source>
        <translation>die Anlage %1</translation>
    </message>
    <message>
        <source>the colours</source>
        <translation>die Farben</translation>
    </message>
    <message>
        <source>The facility %1</source>
        <translation>Die Anlage %1</translation>
    </message>
    <message>
        <source>The colours</source>
        <translation>Die Farben</translation>
    </message>
    <message>
        <source>no date</source>
        <translation>ohne Datum</translation>
    </message>
    <message>
        <source>There is no month %1 of the year %2.</source>
        <translation>Den Monat %1 des Jahres %2 gibt es nicht.</translation>
    </message>
    <message>
        <source>Turn to another month.</source>
        <translation>Blättern Sie zu einem anderen Monat.</translation>
    </message>
    <message>
        <source>Enter the dates of the multiple booking again, for example 3/15/2014.</source>
        <translation>Geben Sie die Daten der Mehrfachbuchung noch einmal ein, zum Beispiel 3/15/2014.</translation>
    </message>
    <message>
        <source>Looking for conflicting bookings ...</source>
        <translation>Suche nach Buchungen, die im Weg sind ...</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>Sonntag</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>Dienstag</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>Mittwoch</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>Donnerstag</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>Freitag</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>Samstag</translation>
    </message>
    <message>
        <source>This name is %1 characters long; the calendar holds %2.</source>
        <translation>Dieser Name ist %1 Zeichen lang; der Kalender fasst %2.</translation>
    </message>
    <message>
        <source>Nothing was changed. Choose a shorter name.</source>
        <translation>Es wurde nichts geändert. Wählen Sie einen kürzeren Namen.</translation>
    </message>
    <message>
        <source>a day without a date</source>
        <translation>einem Tag ohne Datum</translation>
    </message>
    <message>
        <source>%1 dates, %2 to %3</source>
        <translation>%1 Termine, %2 bis %3</translation>
    </message>
    <message>
        <source>No booking covers the whole of the selected time: there is nothing to change.</source>
        <translation>Keine Buchung umfasst die ganze gewählte Zeit: Es gibt nichts zu ändern.</translation>
    </message>
    <message>
        <source>By now it is booked for %1.</source>
        <translation>Inzwischen ist für %1 gebucht.</translation>
    </message>
    <message>
        <source>One of a group: %1</source>
        <translation>Teil einer Gruppe: %1</translation>
    </message>
    <message>
        <source>Renaming bookings ...</source>
        <translation>Buchungen werden umbenannt ...</translation>
    </message>
    <message>
        <source>bookings have the new name.</source>
        <translation>Buchungen haben den neuen Namen.</translation>
    </message>
    <message>
        <source>Continue renames the other bookings of the group.</source>
        <translation>Continue benennt die übrigen Buchungen der Gruppe um.</translation>
    </message>
    <message>
        <source>Undo gives the renamed bookings their old names back.</source>
        <translation>Undo gibt den umbenannten Buchungen ihre alten Namen zurück.</translation>
    </message>
    <message>
        <source>The renamed bookings have their old names again.</source>
        <translation>Die umbenannten Buchungen haben wieder ihre alten Namen.</translation>
    </message>
    <message>
        <source>saving them on the disk</source>
        <translation>das Speichern auf dem Datenträger</translation>
    </message>
    <message>
        <source>Taking back ...</source>
        <translation>Wird zurückgenommen ...</translation>
    </message>
    <message>
        <source>It is not known what became of %1. Look at them in the calendar.</source>
        <translation>Es ist nicht bekannt, was hieraus geworden ist: %1. Sehen Sie im Kalender danach.</translation>
    </message>
    <message>
        <source>It is not known what became of %1. Look at it in the calendar.</source>
        <translation>Es ist nicht bekannt, was hieraus geworden ist: %1. Sehen Sie im Kalender danach.</translation>
    </message>
    <message>
        <source>%1 of %2 %3</source>
        <translation>%1 von %2 %3</translation>
    </message>
    <message>
        <source>You stopped it there.</source>
        <translation>Sie haben dort angehalten.</translation>
    </message>
    <message>
        <source>Then %1 failed, but was saved all the same:</source>
        <translation>Dann ist dies fehlgeschlagen, aber trotzdem gespeichert worden: %1.</translation>
    </message>
    <message>
        <source>Then %1 failed:</source>
        <translation>Dann ist dies fehlgeschlagen: %1.</translation>
    </message>
    <message>
        <source>%1 and 1 other</source>
        <translation>%1 und 1 weitere</translation>
    </message>
    <message>
        <source>%1 and %2 others</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>Keep leaves everything as it is now.</source>
        <translation>Keep lässt alles, wie es jetzt ist.</translation>
    </message>
    <message>
        <source>In the file that was open until now %1</source>
        <translation>In der bisher geöffneten Datei: %1</translation>
    </message>
    <message>
        <source>Left alone because another program has changed them: %1.</source>
        <translation>In Ruhe gelassen, weil ein anderes Programm sie geändert hat: %1.</translation>
    </message>
    <message>
        <source>the booking on %1</source>
        <translation>die Buchung am %1</translation>
    </message>
    <message>
        <source>the booking without a date</source>
        <translation>die Buchung ohne Datum</translation>
    </message>
    <message>
        <source>Nothing was booked: somebody else has booked these times meanwhile.</source>
        <translation>Es wurde nichts gebucht: Jemand anderes hat diese Zeiten inzwischen gebucht.</translation>
    </message>
    <message>
        <source>%1 is no longer as it was left: %2.</source>
        <translation>%1 ist nicht mehr, wie es hinterlassen wurde: %2.</translation>
    </message>
    <message>
        <source>%1 cannot come back: there is a facility %2 now.</source>
        <translation>%1 kann nicht zurückkommen: Jetzt gibt es eine Anlage %2.</translation>
    </message>
    <message>
        <source>%1 cannot come back: the facility is not there any more.</source>
        <translation>%1 kann nicht zurückkommen: Die Anlage gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>%1 cannot come back: %2 stands there now.</source>
        <translation>%1 kann nicht zurückkommen: Dort steht jetzt %2.</translation>
    </message>
    <message>
        <source>The facility %1 cannot go: it has %2 bookings now.</source>
        <translation>Die Anlage %1 kann nicht weg: Sie hat jetzt %2 Buchungen.</translation>
    </message>
    <message>
        <source>%1 stands there now</source>
        <translation>dort steht jetzt %1</translation>
    </message>
    <message>
        <source>it is not there</source>
        <translation>es ist nicht da</translation>
    </message>
    <message>
        <source>The program broke off while it was writing %1, and another program has changed the file since. This change was not finished.</source>
        <translation>Das Programm wurde unterbrochen, als es etwas schrieb (%1), und ein anderes Programm hat die Datei seitdem geändert. Diese Änderung wurde nicht zu Ende geführt.</translation>
    </message>
    <message>
        <source>Look whether it is there, and make it again if it is not. What was to be written is kept as %1.</source>
        <translation>Sehen Sie nach, ob sie da ist, und machen Sie sie noch einmal, wenn nicht. Was geschrieben werden sollte, ist aufgehoben als %1.</translation>
    </message>
    <message>
        <source>The database&apos;s texts are of a code page that this computer does not know.</source>
        <translation>Die Texte der Datenbank haben eine Zeichentabelle, die dieser Computer nicht kennt.</translation>
    </message>
    <message>
        <source>Save it in Access as an Access 2000 or 2002-2003 database (.mdb).</source>
        <translation>Speichern Sie sie in Access als Datenbank von Access 2000 oder 2002-2003 (.mdb).</translation>
    </message>
    <message>
        <source>The database is of a newer kind than Access 2003.</source>
        <translation>Die Datenbank ist von einer neueren Art als Access 2003.</translation>
    </message>
    <message>
        <source>The database is protected by a password.</source>
        <translation>Die Datenbank ist durch ein Kennwort geschützt.</translation>
    </message>
    <message>
        <source>Remove the database password in Access.</source>
        <translation>Entfernen Sie das Datenbankkennwort in Access.</translation>
    </message>
    <message>
        <source>The file is not an Access database.</source>
        <translation>Die Datei ist keine Access-Datenbank.</translation>
    </message>
    <message>
        <source>Check that it is the right file.</source>
        <translation>Prüfen Sie, ob es die richtige Datei ist.</translation>
    </message>
    <message>
        <source>Open it in Access and choose Compact and Repair, or go back to a copy of the file.</source>
        <translation>Öffnen Sie sie in Access und wählen Sie „Komprimieren und Reparieren“, oder nehmen Sie eine Kopie der Datei.</translation>
    </message>
    <message>
        <source>The database file is damaged.</source>
        <translation>Die Datenbankdatei ist beschädigt.</translation>
    </message>
    <message>
        <source>The change cannot be made.</source>
        <translation>Die Änderung kann nicht gemacht werden.</translation>
    </message>
    <message>
        <source>The copy cannot be made: %1.</source>
        <translation>Die Kopie kann nicht angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Check that the disk has room and that you may make files in the folder.</source>
        <translation>Prüfen Sie, ob auf dem Datenträger Platz ist und ob Sie im Ordner Dateien anlegen dürfen.</translation>
    </message>
    <message>
        <source>Another program is using the file.</source>
        <translation>Ein anderes Programm benutzt die Datei.</translation>
    </message>
    <message>
        <source>You did not want to wait. Try again when it has finished.</source>
        <translation>Sie wollten nicht warten. Versuchen Sie es noch einmal, wenn es fertig ist.</translation>
    </message>
    <message>
        <source>Another program has the database open.</source>
        <translation>Ein anderes Programm hat die Datenbank geöffnet.</translation>
    </message>
    <message>
        <source>Close it there and try again.</source>
        <translation>Schließen Sie sie dort und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Another program has taken the database for itself, perhaps to convert it.</source>
        <translation>Ein anderes Programm hat die Datenbank für sich allein, vielleicht um sie umzuwandeln.</translation>
    </message>
    <message>
        <source>Wait until it has finished and try again.</source>
        <translation>Warten Sie, bis es fertig ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Another program is writing to the database and does not finish.</source>
        <translation>Ein anderes Programm schreibt in die Datenbank und wird nicht fertig.</translation>
    </message>
    <message>
        <source>Try again in a moment, or close the other program.</source>
        <translation>Versuchen Sie es gleich noch einmal, oder schließen Sie das andere Programm.</translation>
    </message>
    <message>
        <source>The journal of the database cannot be written: %1.</source>
        <translation>Das Journal der Datenbank kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>Check that the disk is not full and that you may write to the folder.</source>
        <translation>Prüfen Sie, ob der Datenträger nicht voll ist und ob Sie in den Ordner schreiben dürfen.</translation>
    </message>
    <message>
        <source>The program broke off while it was writing %1, and another program has changed the file since.</source>
        <translation>Das Programm wurde unterbrochen, als es etwas schrieb (%1), und ein anderes Programm hat die Datei seitdem geändert.</translation>
    </message>
    <message>
        <source>Look through the last bookings, then remove %1.</source>
        <translation>Sehen Sie die letzten Buchungen durch, dann entfernen Sie %1.</translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <translation>%1 an %2</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 und %2</translation>
    </message>
    <message>
        <source>Another program has the database open: %1.</source>
        <translation>Ein anderes Programm hat die Datenbank geöffnet: %1.</translation>
    </message>
    <message>
        <source>Close it there. When nobody has it open, delete the file %1.</source>
        <translation>Schließen Sie sie dort. Hat niemand sie geöffnet, löschen Sie die Datei %1.</translation>
    </message>
    <message>
        <source>The database has grown to 2 GB, the largest size of an Access file.</source>
        <translation>Die Datenbank ist auf 2 GB gewachsen, die größte Größe einer Access-Datei.</translation>
    </message>
    <message>
        <source>Make room in it with veyra-data compact, or convert it to the other kind of file with veyra-data convert.</source>
        <translation>Schaffen Sie darin Platz mit veyra-data compact, oder wandeln Sie sie mit veyra-data convert in die andere Art von Datei um.</translation>
    </message>
    <message>
        <source>Check the disk or network folder that holds the file.</source>
        <translation>Prüfen Sie den Datenträger oder den Netzwerkordner, auf dem die Datei liegt.</translation>
    </message>
    <message>
        <source>The database cannot be opened: %1.</source>
        <translation>Die Datenbank kann nicht geöffnet werden: %1.</translation>
    </message>
    <message>
        <source>Check that the file is there and that you may use it.</source>
        <translation>Prüfen Sie, ob die Datei da ist und ob Sie sie benutzen dürfen.</translation>
    </message>
    <message>
        <source>The database cannot be read: %1.</source>
        <translation>Die Datenbank kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The database cannot be written: %1.</source>
        <translation>Die Datenbank kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>The database file is empty.</source>
        <translation>Die Datenbankdatei ist leer.</translation>
    </message>
    <message>
        <source>Go back to a copy of the file.</source>
        <translation>Nehmen Sie eine Kopie der Datei.</translation>
    </message>
    <message>
        <source>The database file is cut short.</source>
        <translation>Die Datenbankdatei ist abgeschnitten.</translation>
    </message>
    <message>
        <source>The database has no list of its tables: it is damaged.</source>
        <translation>Die Datenbank hat kein Verzeichnis ihrer Tabellen: Sie ist beschädigt.</translation>
    </message>
    <message>
        <source>Another program kept changing the database while it was read.</source>
        <translation>Ein anderes Programm hat die Datenbank immer wieder geändert, während sie gelesen wurde.</translation>
    </message>
    <message>
        <source>Try again in a moment.</source>
        <translation>Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>A table of the database has %1 rows where its definition says %2: another program is writing to it, or it is damaged.</source>
        <translation>Eine Tabelle der Datenbank hat %1 Zeilen, wo ihre Beschreibung %2 angibt: Ein anderes Programm schreibt gerade hinein, oder sie ist beschädigt.</translation>
    </message>
    <message>
        <source>A table of the database has no columns: it is damaged.</source>
        <translation>Eine Tabelle der Datenbank hat keine Spalten: Sie ist beschädigt.</translation>
    </message>
    <message>
        <source>The database cannot be made: %1.</source>
        <translation>Die Datenbank kann nicht angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Check the folder.</source>
        <translation>Prüfen Sie den Ordner.</translation>
    </message>
    <message>
        <source>The text is longer than an Access file allows.</source>
        <translation>Der Text ist länger, als eine Access-Datei erlaubt.</translation>
    </message>
    <message>
        <source>Shorten it.</source>
        <translation>Kürzen Sie ihn.</translation>
    </message>
    <message>
        <source>The table has too many columns and indexes for an Access file.</source>
        <translation>Die Tabelle hat zu viele Spalten und Indizes für eine Access-Datei.</translation>
    </message>
    <message>
        <source>The column %1 cannot hold the value: %2.</source>
        <translation>Die Spalte %1 kann den Wert nicht aufnehmen: %2.</translation>
    </message>
    <message>
        <source>Change the value and try again.</source>
        <translation>Ändern Sie den Wert und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>it is not a whole number of its range</source>
        <translation>er ist keine ganze Zahl in ihrem Bereich</translation>
    </message>
    <message>
        <source>it is not a number</source>
        <translation>er ist keine Zahl</translation>
    </message>
    <message>
        <source>it is too large</source>
        <translation>er ist zu groß</translation>
    </message>
    <message>
        <source>it is not a date</source>
        <translation>er ist kein Datum</translation>
    </message>
    <message>
        <source>The text begins with the invisible sign U+FEFF, which an Access file cannot hold together with some of the others.</source>
        <translation>Der Text beginnt mit dem unsichtbaren Zeichen U+FEFF, das eine Access-Datei zusammen mit manchen der anderen nicht aufnehmen kann.</translation>
    </message>
    <message>
        <source>Delete the beginning of the text, and type it anew.</source>
        <translation>Löschen Sie den Anfang des Textes und geben Sie ihn neu ein.</translation>
    </message>
    <message>
        <source>it is longer than %1 characters</source>
        <translation>er ist länger als %1 Zeichen</translation>
    </message>
    <message>
        <source>The row is longer than an Access file allows.</source>
        <translation>Die Zeile ist länger, als eine Access-Datei erlaubt.</translation>
    </message>
    <message>
        <source>Shorten its texts.</source>
        <translation>Kürzen Sie ihre Texte.</translation>
    </message>
    <message>
        <source>this program does not write columns of its kind</source>
        <translation>dieses Programm schreibt keine Spalten dieser Art</translation>
    </message>
    <message>
        <source>An Access file of this program cannot have a table of the name %1.</source>
        <translation>Eine Access-Datei dieses Programms kann keine Tabelle des Namens %1 haben.</translation>
    </message>
    <message>
        <source>Use western letters, digits and signs like _ and - only, with no blank at either end.</source>
        <translation>Nehmen Sie nur westliche Buchstaben, Ziffern und Zeichen wie _ und -, ohne Leerzeichen an den Enden.</translation>
    </message>
    <message>
        <source>The table has as many columns as an Access file allows.</source>
        <translation>Die Tabelle hat so viele Spalten, wie eine Access-Datei erlaubt.</translation>
    </message>
    <message>
        <source>Compact the database in Access.</source>
        <translation>Komprimieren Sie die Datenbank in Access.</translation>
    </message>
    <message>
        <source>Convert the calendar with veyra-data convert, then start again.</source>
        <translation>Wandeln Sie den Kalender mit veyra-data convert um und starten Sie dann neu.</translation>
    </message>
    <message>
        <source>There is a row already with the same value in the index %1, which allows each value once.</source>
        <translation>Es gibt schon eine Zeile mit demselben Wert im Index %1, der jeden Wert nur einmal erlaubt.</translation>
    </message>
    <message>
        <source>The database is of Access 97, which this program only reads.</source>
        <translation>Die Datenbank ist von Access 97, was dieses Programm nur liest.</translation>
    </message>
    <message>
        <source>The database is encoded; this program only reads such files.</source>
        <translation>Die Datenbank ist kodiert; solche Dateien liest dieses Programm nur.</translation>
    </message>
    <message>
        <source>The database has an index, %1, that this program cannot keep right.</source>
        <translation>Die Datenbank hat einen Index, %1, den dieses Programm nicht richtig führen kann.</translation>
    </message>
    <message>
        <source>The name of a table has a sign that this program cannot sort.</source>
        <translation>Der Name einer Tabelle hat ein Zeichen, das dieses Programm nicht einordnen kann.</translation>
    </message>
    <message>
        <source>Rename the table: use letters, digits and common signs only.</source>
        <translation>Benennen Sie die Tabelle um: nur Buchstaben, Ziffern und übliche Zeichen.</translation>
    </message>
    <message>
        <source>The database has grown to the largest size its format allows.</source>
        <translation>Die Datenbank ist auf die größte Größe gewachsen, die ihr Format erlaubt.</translation>
    </message>
    <message>
        <source>Convert it with veyra-data convert.</source>
        <translation>Wandeln Sie sie mit veyra-data convert um.</translation>
    </message>
    <message>
        <source>Put a backup copy in its place, or write the link anew with &quot;veyra-data link&quot;.</source>
        <translation>Legen Sie eine Sicherungskopie an seine Stelle, oder schreiben Sie den Verweis neu mit „veyra-data link“.</translation>
    </message>
    <message>
        <source>The link cannot be read: %1.</source>
        <translation>Der Verweis kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>Line %1 of the link is not understood: &quot;%2&quot;.</source>
        <translation>Zeile %1 des Verweises wird nicht verstanden: „%2“.</translation>
    </message>
    <message>
        <source>The file is not a link to a shared calendar.</source>
        <translation>Die Datei ist kein Verweis auf einen gemeinsamen Kalender.</translation>
    </message>
    <message>
        <source>The link is of a kind that this version of the program does not know: &quot;%1&quot;.</source>
        <translation>Der Verweis ist von einer Art, die diese Version des Programms nicht kennt: „%1“.</translation>
    </message>
    <message>
        <source>Use the version of the program that wrote it.</source>
        <translation>Nehmen Sie die Version des Programms, die ihn geschrieben hat.</translation>
    </message>
    <message>
        <source>The link names no server.</source>
        <translation>Der Verweis nennt keinen Server.</translation>
    </message>
    <message>
        <source>The server or the schema of the link is empty or has a line break in it.</source>
        <translation>Der Server oder das Schema des Verweises ist leer oder enthält einen Zeilenumbruch.</translation>
    </message>
    <message>
        <source>Write each of them in one line.</source>
        <translation>Schreiben Sie beides in je eine Zeile.</translation>
    </message>
    <message>
        <source>This file is there already; nothing was made.</source>
        <translation>Diese Datei gibt es schon; es wurde nichts angelegt.</translation>
    </message>
    <message>
        <source>The link cannot be made: %1.</source>
        <translation>Der Verweis kann nicht angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Choose another folder, or move the file away first.</source>
        <translation>Wählen Sie einen anderen Ordner, oder räumen Sie die Datei zuerst weg.</translation>
    </message>
    <message>
        <source>Check that the folder is there and that you may make files in it.</source>
        <translation>Prüfen Sie, ob der Ordner da ist und ob Sie darin Dateien anlegen dürfen.</translation>
    </message>
    <message>
        <source>The colour &quot;%1&quot; in column %2 of row 1 of the table Settings is not a colour number.</source>
        <translation>Die Farbe „%1“ in Spalte %2 der Zeile 1 der Tabelle Settings ist keine Farbnummer.</translation>
    </message>
    <message>
        <source>Save new colours in the colour settings, or use a backup copy of the calendar.</source>
        <translation>Speichern Sie in den Farbeinstellungen neue Farben, oder nehmen Sie eine Sicherungskopie des Kalenders.</translation>
    </message>
    <message>
        <source>The table Settings has no row 1, which holds the colours of the calendar.</source>
        <translation>Die Tabelle Settings hat keine Zeile 1, in der die Farben des Kalenders stehen.</translation>
    </message>
    <message>
        <source>Check that the folder is the right one.</source>
        <translation>Prüfen Sie, ob der Ordner der richtige ist.</translation>
    </message>
    <message>
        <source>The first line of %1 must name the folder that holds Calendar.mdb and Veyra.mdb.</source>
        <translation>Die erste Zeile von %1 muss den Ordner nennen, in dem Calendar.mdb und Veyra.mdb liegen.</translation>
    </message>
    <message>
        <source>The program adds it when it starts, but could not do so.</source>
        <translation>Das Programm fügt sie beim Start hinzu, konnte es aber nicht.</translation>
    </message>
    <message>
        <source>It is added at the next start.</source>
        <translation>Sie wird beim nächsten Start hinzugefügt.</translation>
    </message>
    <message>
        <source>Put the right file, or a backup copy of it, in its place and start again.</source>
        <translation>Legen Sie die richtige Datei oder eine Sicherungskopie davon an ihre Stelle und starten Sie neu.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no such file, and no folder %1.</source>
        <translation>Diese Datei gibt es nicht, und auch keinen Ordner %1.</translation>
    </message>
    <message>
        <source>Check that the folder is the right one and that the file is in it.</source>
        <translation>Prüfen Sie, ob der Ordner der richtige ist und ob die Datei darin liegt.</translation>
    </message>
    <message>
        <source>This is a folder, where a database file should be.</source>
        <translation>Dies ist ein Ordner, wo eine Datenbankdatei sein sollte.</translation>
    </message>
    <message>
        <source>Move the folder away and put the file in its place.</source>
        <translation>Räumen Sie den Ordner weg und legen Sie die Datei an seine Stelle.</translation>
    </message>
    <message>
        <source>This is not a file that can be read.</source>
        <translation>Dies ist keine lesbare Datei.</translation>
    </message>
    <message>
        <source>Check that the disk is connected and that you may use the folder.</source>
        <translation>Prüfen Sie, ob der Datenträger verbunden ist und ob Sie den Ordner benutzen dürfen.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>You may not read the file.</source>
        <translation>Sie dürfen die Datei nicht lesen.</translation>
    </message>
    <message>
        <source>Ask for the right to read and change the file.</source>
        <translation>Bitten Sie um das Recht, die Datei zu lesen und zu ändern.</translation>
    </message>
    <message>
        <source>The file is write-protected, so nothing could be saved.</source>
        <translation>Die Datei ist schreibgeschützt, es könnte also nichts gespeichert werden.</translation>
    </message>
    <message>
        <source>Ask for the right to change the file, or remove its write protection.</source>
        <translation>Bitten Sie um das Recht, die Datei zu ändern, oder entfernen Sie ihren Schreibschutz.</translation>
    </message>
    <message>
        <source>The folder %1 is write-protected, so nothing could be saved.</source>
        <translation>Der Ordner %1 ist schreibgeschützt, es könnte also nichts gespeichert werden.</translation>
    </message>
    <message>
        <source>Ask for the right to make files in the folder, or remove its write protection.</source>
        <translation>Bitten Sie um das Recht, im Ordner Dateien anzulegen, oder entfernen Sie seinen Schreibschutz.</translation>
    </message>
    <message>
        <source>The file is not a database of a kind known here.</source>
        <translation>Die Datei ist keine Datenbank einer hier bekannten Art.</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>your share of the disk is full</source>
        <translation>Ihr Anteil am Datenträger ist voll</translation>
    </message>
    <message>
        <source>the disk may only be read</source>
        <translation>der Datenträger darf nur gelesen werden</translation>
    </message>
    <message>
        <source>the disk reported a failure</source>
        <translation>der Datenträger hat einen Fehler gemeldet</translation>
    </message>
    <message>
        <source>you do not have the right to</source>
        <translation>Sie haben dazu nicht das Recht</translation>
    </message>
    <message>
        <source>there is no such file or folder</source>
        <translation>diese Datei oder diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>there is a file of that name already</source>
        <translation>eine Datei dieses Namens gibt es schon</translation>
    </message>
    <message>
        <source>it is a link that leads to itself</source>
        <translation>es ist ein Verweis, der auf sich selbst führt</translation>
    </message>
    <message>
        <source>the name is too long</source>
        <translation>der Name ist zu lang</translation>
    </message>
    <message>
        <source>Enter another one.</source>
        <translation>Geben Sie einen anderen ein.</translation>
    </message>
    <message>
        <source>Nothing was saved.</source>
        <translation>Es wurde nichts gespeichert.</translation>
    </message>
    <message>
        <source>it is not a whole number</source>
        <translation>er ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>there is something in it that is not a character</source>
        <translation>er enthält etwas, das kein Zeichen ist</translation>
    </message>
    <message>
        <source>The calendar&apos;s server cannot be reached: %1.</source>
        <translation>Der Server des Kalenders ist nicht erreichbar: %1.</translation>
    </message>
    <message>
        <source>Put the password into the file ~/.pgpass of this account.</source>
        <translation>Schreiben Sie das Kennwort in die Datei ~/.pgpass dieses Kontos.</translation>
    </message>
    <message>
        <source>Check the network, that the server is running, and that the link names the right one.</source>
        <translation>Prüfen Sie das Netzwerk, ob der Server läuft und ob der Verweis den richtigen nennt.</translation>
    </message>
    <message>
        <source>The wait for the calendar&apos;s server was ended.</source>
        <translation>Das Warten auf den Server des Kalenders wurde beendet.</translation>
    </message>
    <message>
        <source>The calendar&apos;s server does not answer.</source>
        <translation>Der Server des Kalenders antwortet nicht.</translation>
    </message>
    <message>
        <source>Check the network, and that the server is running.</source>
        <translation>Prüfen Sie das Netzwerk und ob der Server läuft.</translation>
    </message>
    <message>
        <source>The calendar&apos;s server is another machine, %1, and nothing says how to be sure of it.</source>
        <translation>Der Server des Kalenders ist ein anderer Rechner, %1, und nichts sagt, wie man sich seiner sicher sein kann.</translation>
    </message>
    <message>
        <source>Put sslmode=verify-full into the service file.</source>
        <translation>Schreiben Sie sslmode=verify-full in die Dienstdatei.</translation>
    </message>
    <message>
        <source>Another desk has the calendar open and did not let go of it.</source>
        <translation>Ein anderer Arbeitsplatz hat den Kalender geöffnet und gab ihn nicht frei.</translation>
    </message>
    <message>
        <source>Wait until the other desk has finished, and try again.</source>
        <translation>Warten Sie, bis der andere Arbeitsplatz fertig ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The server has no calendar in the schema &quot;%1&quot;.</source>
        <translation>Der Server hat keinen Kalender im Schema „%1“.</translation>
    </message>
    <message>
        <source>Check that the link names the right database. &quot;veyra-data share&quot; puts a calendar there.</source>
        <translation>Prüfen Sie, ob der Verweis die richtige Datenbank nennt. „veyra-data share“ bringt einen Kalender dorthin.</translation>
    </message>
    <message>
        <source>The calendar is shared on a server, and what talks to such servers is not on this machine.</source>
        <translation>Der Kalender liegt gemeinsam auf einem Server, und was mit solchen Servern spricht, fehlt auf diesem Rechner.</translation>
    </message>
    <message>
        <source>Install the package libpq5, and start again.</source>
        <translation>Installieren Sie das Paket libpq5 und starten Sie neu.</translation>
    </message>
    <message>
        <source>The library %1 lacks %2.</source>
        <translation>Der Bibliothek %1 fehlt %2.</translation>
    </message>
    <message>
        <source>Bring the package libpq5 up to date, and start again.</source>
        <translation>Bringen Sie das Paket libpq5 auf den neuesten Stand und starten Sie neu.</translation>
    </message>
    <message>
        <source>The link does not name a server as it should: %1.</source>
        <translation>Der Verweis nennt den Server nicht, wie er sollte: %1.</translation>
    </message>
    <message>
        <source>Write it as postgresql://USER@HOST/DATABASE or service=NAME.</source>
        <translation>Schreiben Sie ihn als postgresql://USER@HOST/DATABASE oder service=NAME.</translation>
    </message>
    <message>
        <source>There is a password in the link, which everybody who may read the file would have.</source>
        <translation>Im Verweis steht ein Kennwort, das jeder hätte, der die Datei lesen darf.</translation>
    </message>
    <message>
        <source>Take it out of the link. Put it into the file ~/.pgpass of each desk, or into a service file, or let the server know the desks by their accounts (peer authentication).</source>
        <translation>Nehmen Sie es aus dem Verweis heraus. Schreiben Sie es an jedem Arbeitsplatz in die Datei ~/.pgpass oder in eine Dienstdatei, oder lassen Sie den Server die Arbeitsplätze an ihren Konten erkennen (peer authentication).</translation>
    </message>
    <message>
        <source>The calendar is shared on a server, and this program was built without what talks to such servers.</source>
        <translation>Der Kalender liegt gemeinsam auf einem Server, und dieses Programm wurde ohne das gebaut, was mit solchen Servern spricht.</translation>
    </message>
    <message>
        <source>Use a program that was built with it.</source>
        <translation>Nehmen Sie ein Programm, das damit gebaut wurde.</translation>
    </message>
    <message>
        <source>What other desks change cannot be waited for: %1.</source>
        <translation>Auf Änderungen anderer Arbeitsplätze kann nicht gewartet werden: %1.</translation>
    </message>
    <message>
        <source>Close some programs, and start again.</source>
        <translation>Schließen Sie einige Programme und starten Sie neu.</translation>
    </message>
    <message>
        <source>The server has a calendar in the schema &quot;%1&quot; already: its table %2 is not empty, or is another program&apos;s.</source>
        <translation>Der Server hat im Schema „%1“ schon einen Kalender: Seine Tabelle %2 ist nicht leer oder gehört einem anderen Programm.</translation>
    </message>
    <message>
        <source>Nothing was changed. Name another schema or another database.</source>
        <translation>Es wurde nichts geändert. Nennen Sie ein anderes Schema oder eine andere Datenbank.</translation>
    </message>
    <message>
        <source>The table %1 is another program&apos;s.</source>
        <translation>Die Tabelle %1 gehört einem anderen Programm.</translation>
    </message>
    <message>
        <source>Nothing was changed. Rename that table to keep a journal here.</source>
        <translation>Es wurde nichts geändert. Benennen Sie jene Tabelle um, damit hier ein Journal geführt werden kann.</translation>
    </message>
    <message>
        <source>Ask whoever looks after the server.</source>
        <translation>Fragen Sie, wer den Server betreut.</translation>
    </message>
    <message>
        <source>The calendar&apos;s server reports: %1.</source>
        <translation>Der Server des Kalenders meldet: %1.</translation>
    </message>
    <message>
        <source>The wait for another desk was ended.</source>
        <translation>Das Warten auf einen anderen Arbeitsplatz wurde beendet.</translation>
    </message>
    <message>
        <source>Another desk is changing the calendar and did not let go of it.</source>
        <translation>Ein anderer Arbeitsplatz ändert gerade den Kalender und gab ihn nicht frei.</translation>
    </message>
    <message>
        <source>Wait a moment and try again.</source>
        <translation>Warten Sie einen Augenblick und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Somebody else has booked these times meanwhile.</source>
        <translation>Jemand anderes hat diese Zeiten inzwischen gebucht.</translation>
    </message>
    <message>
        <source>Look at the bookings as they are now.</source>
        <translation>Sehen Sie sich die Buchungen an, wie sie jetzt sind.</translation>
    </message>
    <message>
        <source>The connection to the calendar&apos;s server is lost: %1.</source>
        <translation>Die Verbindung zum Server des Kalenders ist verloren: %1.</translation>
    </message>
    <message>
        <source>Do it again: the program then connects anew.</source>
        <translation>Machen Sie es noch einmal: Das Programm verbindet sich dann neu.</translation>
    </message>
    <message>
        <source>You may not do this on the calendar&apos;s server: %1.</source>
        <translation>Das dürfen Sie auf dem Server des Kalenders nicht: %1.</translation>
    </message>
    <message>
        <source>The calendar&apos;s server takes no changes now.</source>
        <translation>Der Server des Kalenders nimmt zurzeit keine Änderungen an.</translation>
    </message>
    <message>
        <source>The disk of the calendar&apos;s server is full.</source>
        <translation>Der Datenträger des Servers des Kalenders ist voll.</translation>
    </message>
    <message>
        <source>The query &quot;%1&quot; was not understood: character %2 should begin %3.</source>
        <translation>Die Abfrage „%1“ wurde nicht verstanden: Mit Zeichen %2 sollte %3 beginnen.</translation>
    </message>
    <message>
        <source>This is a fault of the program. Please report it with this text.</source>
        <translation>Dies ist ein Fehler des Programms. Bitte melden Sie ihn mit diesem Text.</translation>
    </message>
    <message>
        <source>The file is a link: the calendar is on a server.</source>
        <translation>Die Datei ist ein Verweis: Der Kalender liegt auf einem Server.</translation>
    </message>
    <message>
        <source>Ask whoever looks after the server for its backup.</source>
        <translation>Fragen Sie, wer den Server betreut, nach seiner Sicherungskopie.</translation>
    </message>
    <message>
        <source>Nothing of a database is left in the file.</source>
        <translation>Von einer Datenbank ist in der Datei nichts übrig.</translation>
    </message>
    <message>
        <source>The file cannot be read: %1.</source>
        <translation>Die Datei kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>Check that the file is there and that you may read it.</source>
        <translation>Prüfen Sie, ob die Datei da ist und ob Sie sie lesen dürfen.</translation>
    </message>
    <message>
        <source>The note that says who has the file open cannot be written: %1.</source>
        <translation>Der Zettel, der sagt, wer die Datei geöffnet hat, kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>Another program has changed the table %1, in which the journal is kept.</source>
        <translation>Ein anderes Programm hat die Tabelle %1 geändert, in der das Journal geführt wird.</translation>
    </message>
    <message>
        <source>Close the program, end the journal with veyra-data journal off, and rename that table: then it can begin anew.</source>
        <translation>Schließen Sie das Programm, beenden Sie das Journal mit veyra-data journal off, und benennen Sie jene Tabelle um: Dann kann es neu beginnen.</translation>
    </message>
    <message>
        <source>The calendar was not closed properly, and what it left could not be tried on a copy: %1.</source>
        <translation>Der Kalender wurde nicht richtig geschlossen, und was er hinterließ, konnte nicht an einer Kopie versucht werden: %1.</translation>
    </message>
    <message>
        <source>Make room on the disk, or in the folder for temporary files, and start again. Nothing was changed.</source>
        <translation>Schaffen Sie Platz auf dem Datenträger oder im Ordner für vorübergehende Dateien und starten Sie neu. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>What the calendar left when it was not closed properly belongs to another file, and could not be set aside: %1.</source>
        <translation>Was der Kalender hinterließ, als er nicht richtig geschlossen wurde, gehört zu einer anderen Datei und konnte nicht beiseitegelegt werden: %1.</translation>
    </message>
    <message>
        <source>Move this file out of the folder and start again.</source>
        <translation>Räumen Sie diese Datei aus dem Ordner und starten Sie neu.</translation>
    </message>
    <message>
        <source>The calendar was not closed properly, and its last changes cannot be read any more.</source>
        <translation>Der Kalender wurde nicht richtig geschlossen, und seine letzten Änderungen sind nicht mehr lesbar.</translation>
    </message>
    <message>
        <source>The file was replaced, perhaps by a backup, before the last changes of the former one were all in it. Those changes do not belong to this file.</source>
        <translation>Die Datei wurde ersetzt, vielleicht durch eine Sicherungskopie, bevor die letzten Änderungen der vorigen alle darin waren. Jene Änderungen gehören nicht zu dieser Datei.</translation>
    </message>
    <message>
        <source>They were set aside as &quot;%1&quot;. Look whether the bookings are as you expect them. When they are, you may delete what was set aside.</source>
        <translation>Sie wurden als „%1“ beiseitegelegt. Sehen Sie nach, ob die Buchungen so sind, wie Sie sie erwarten. Wenn ja, dürfen Sie das Beiseitegelegte löschen.</translation>
    </message>
    <message>
        <source>The file was replaced while a calendar has the former one open.</source>
        <translation>Die Datei wurde ersetzt, während ein Kalender die vorige geöffnet hat.</translation>
    </message>
    <message>
        <source>Close the calendar wherever it is open, and start again.</source>
        <translation>Schließen Sie den Kalender überall, wo er geöffnet ist, und starten Sie neu.</translation>
    </message>
    <message>
        <source>Another program is writing to the file all the time.</source>
        <translation>Ein anderes Programm schreibt die ganze Zeit in die Datei.</translation>
    </message>
    <message>
        <source>Wait until the other program has finished, and try again.</source>
        <translation>Warten Sie, bis das andere Programm fertig ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The rows of the table %1 cannot be changed.</source>
        <translation>Die Zeilen der Tabelle %1 können nicht geändert werden.</translation>
    </message>
    <message>
        <source>The file was made by another program. Use the file of this program.</source>
        <translation>Die Datei wurde von einem anderen Programm angelegt. Nehmen Sie die Datei dieses Programms.</translation>
    </message>
    <message>
        <source>Put a backup copy in its place. Keep the damaged file: a specialist may be able to read it.</source>
        <translation>Legen Sie eine Sicherungskopie an ihre Stelle. Behalten Sie die beschädigte Datei: Eine Fachkraft kann sie vielleicht lesen.</translation>
    </message>
    <message>
        <source>Another program was interrupted in the middle of a change of the file.</source>
        <translation>Ein anderes Programm wurde mitten in einer Änderung der Datei unterbrochen.</translation>
    </message>
    <message>
        <source>Start the program that the file belongs to: it puts the file in order.</source>
        <translation>Starten Sie das Programm, zu dem die Datei gehört: Es bringt sie in Ordnung.</translation>
    </message>
    <message>
        <source>The file may be read but not written to (error %1).</source>
        <translation>Die Datei darf gelesen, aber nicht beschrieben werden (Fehler %1).</translation>
    </message>
    <message>
        <source>Ask for the right to change the file and the folder it is in.</source>
        <translation>Bitten Sie um das Recht, die Datei und den Ordner, in dem sie liegt, zu ändern.</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>Make room on the disk and try again.</source>
        <translation>Schaffen Sie Platz auf dem Datenträger und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The disk reported a failure while the file was in use (error %1).</source>
        <translation>Der Datenträger hat einen Fehler gemeldet, während die Datei benutzt wurde (Fehler %1).</translation>
    </message>
    <message>
        <source>Check that the disk or the network folder is still connected, and try again.</source>
        <translation>Prüfen Sie, ob der Datenträger oder der Netzwerkordner noch verbunden ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The file is damaged or was cut short.</source>
        <translation>Die Datei ist beschädigt oder wurde abgeschnitten.</translation>
    </message>
    <message>
        <source>The file is not a database, or it is damaged or locked with a password.</source>
        <translation>Die Datei ist keine Datenbank, oder sie ist beschädigt oder mit einem Kennwort verschlossen.</translation>
    </message>
    <message>
        <source>The file cannot be opened (error %1).</source>
        <translation>Die Datei kann nicht geöffnet werden (Fehler %1).</translation>
    </message>
    <message>
        <source>Check that the folder is there and that you may use it.</source>
        <translation>Prüfen Sie, ob der Ordner da ist und ob Sie ihn benutzen dürfen.</translation>
    </message>
    <message>
        <source>The computer has run out of memory.</source>
        <translation>Dem Computer ist der Speicher ausgegangen.</translation>
    </message>
    <message>
        <source>Close other programs and try again.</source>
        <translation>Schließen Sie andere Programme und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The file&apos;s own rules do not allow this row: %1.</source>
        <translation>Die eigenen Regeln der Datei erlauben diese Zeile nicht: %1.</translation>
    </message>
    <message>
        <source>The file may have been made by another program.</source>
        <translation>Die Datei wurde vielleicht von einem anderen Programm angelegt.</translation>
    </message>
    <message>
        <source>The database reported a failure: %1 (error %2).</source>
        <translation>Die Datenbank hat einen Fehler gemeldet: %1 (Fehler %2).</translation>
    </message>
    <message>
        <source>Try again. If it fails again, restart the program.</source>
        <translation>Versuchen Sie es noch einmal. Schlägt es wieder fehl, starten Sie das Programm neu.</translation>
    </message>
    <message>
        <source>Another program is using the file and did not let go of it.</source>
        <translation>Ein anderes Programm benutzt die Datei und gab sie nicht frei.</translation>
    </message>
    <message>
        <source>Wait until the other program has finished, or close it, and try again.</source>
        <translation>Warten Sie, bis das andere Programm fertig ist, oder schließen Sie es, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The disk gave wrong data for a moment. The file was checked and is whole.</source>
        <translation>Der Datenträger hat für einen Augenblick falsche Daten geliefert. Die Datei wurde geprüft und ist unversehrt.</translation>
    </message>
    <message>
        <source>Try again. If it happens again, have the disk or the network folder looked at.</source>
        <translation>Versuchen Sie es noch einmal. Geschieht es wieder, lassen Sie den Datenträger oder den Netzwerkordner prüfen.</translation>
    </message>
    <message>
        <source>What was read of the file makes no sense, and the file could not be checked.</source>
        <translation>Was aus der Datei gelesen wurde, ergibt keinen Sinn, und die Datei konnte nicht geprüft werden.</translation>
    </message>
    <message>
        <source>Close other programs that use the file, and try again. Have the disk looked at if it happens again.</source>
        <translation>Schließen Sie andere Programme, die die Datei benutzen, und versuchen Sie es noch einmal. Lassen Sie den Datenträger prüfen, wenn es wieder geschieht.</translation>
    </message>
    <message>
        <source>The file was made by another program or a part of it was removed. Use the file of this program, or a backup copy of it.</source>
        <translation>Die Datei wurde von einem anderen Programm angelegt, oder ein Teil davon wurde entfernt. Nehmen Sie die Datei dieses Programms oder eine Sicherungskopie davon.</translation>
    </message>
    <message>
        <source>Look at the bookings as they are now, and do it again if it is still needed.</source>
        <translation>Sehen Sie sich die Buchungen an, wie sie jetzt sind, und machen Sie es noch einmal, wenn es noch nötig ist.</translation>
    </message>
    <message>
        <source>Nothing was overwritten.</source>
        <translation>Es wurde nichts überschrieben.</translation>
    </message>
    <message>
        <source>Open the file anew, look at the bookings as they are there, and do it again if it is still needed.</source>
        <translation>Öffnen Sie die Datei neu, sehen Sie sich die Buchungen an, wie sie dort sind, und machen Sie es noch einmal, wenn es noch nötig ist.</translation>
    </message>
    <message>
        <source>Nothing was saved in it.</source>
        <translation>Darin wurde nichts gespeichert.</translation>
    </message>
    <message>
        <source>The file has no table %1.</source>
        <translation>Die Datei hat keine Tabelle %1.</translation>
    </message>
    <message>
        <source>The table %1 has no column %2.</source>
        <translation>Die Tabelle %1 hat keine Spalte %2.</translation>
    </message>
    <message>
        <source>The file has a table %1 already.</source>
        <translation>Die Datei hat schon eine Tabelle %1.</translation>
    </message>
    <message>
        <source>The table %1 has a column %2 already.</source>
        <translation>Die Tabelle %1 hat schon eine Spalte %2.</translation>
    </message>
    <message>
        <source>The file was opened for reading only, so nothing can be saved in it.</source>
        <translation>Die Datei wurde nur zum Lesen geöffnet, es kann also nichts darin gespeichert werden.</translation>
    </message>
    <message>
        <source>This is a fault of the program. Please report it.</source>
        <translation>Dies ist ein Fehler des Programms. Bitte melden Sie ihn.</translation>
    </message>
    <message>
        <source>Another program has just changed this row of the table %1.</source>
        <translation>Ein anderes Programm hat gerade diese Zeile der Tabelle %1 geändert.</translation>
    </message>
    <message>
        <source>Another program has just removed this row of the table %1.</source>
        <translation>Ein anderes Programm hat gerade diese Zeile der Tabelle %1 entfernt.</translation>
    </message>
    <message>
        <source>The file was replaced by another one while the calendar was open.</source>
        <translation>Die Datei wurde durch eine andere ersetzt, während der Kalender geöffnet war.</translation>
    </message>
    <message>
        <source>The file was overwritten by another program while the calendar was open.</source>
        <translation>Die Datei wurde von einem anderen Programm überschrieben, während der Kalender geöffnet war.</translation>
    </message>
    <message>
        <source>The file was removed, moved or renamed while the calendar was open.</source>
        <translation>Die Datei wurde entfernt, verschoben oder umbenannt, während der Kalender geöffnet war.</translation>
    </message>
    <message>
        <source>Put the file, or a backup copy of it, back in its place, and open it anew.</source>
        <translation>Legen Sie die Datei oder eine Sicherungskopie davon wieder an ihre Stelle und öffnen Sie sie neu.</translation>
    </message>
    <message>
        <source>It is not certain whether this booking was saved: look before you try again. Check that the disk or the network folder is connected and has room, then open the day anew: what it shows is what is saved.</source>
        <translation>Es ist nicht sicher, ob diese Buchung gespeichert wurde: Sehen Sie nach, bevor Sie es noch einmal versuchen. Prüfen Sie, ob der Datenträger oder der Netzwerkordner verbunden ist und Platz hat, und öffnen Sie dann den Tag neu: Was er zeigt, ist gespeichert.</translation>
    </message>
    <message>
        <source>Another program has just changed the table %1.</source>
        <translation>Ein anderes Programm hat gerade die Tabelle %1 geändert.</translation>
    </message>
    <message>
        <source>To go on with the usual colours, start again after this command; veyra-data lies beside the calendar: %1</source>
        <translation>Um mit den üblichen Farben fortzufahren, starten Sie nach diesem Befehl neu; veyra-data liegt neben dem Kalender: %1</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>So</translation>
    </message>
    <message>
        <source>Mon</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>Tue</source>
        <translation>Di</translation>
    </message>
    <message>
        <source>Wed</source>
        <translation>Mi</translation>
    </message>
    <message>
        <source>Thu</source>
        <translation>Do</translation>
    </message>
    <message>
        <source>Fri</source>
        <translation>Fr</translation>
    </message>
    <message>
        <source>Sat</source>
        <translation>Sa</translation>
    </message>
    <message>
        <source>1 row cannot be read.</source>
        <translation>1 Zeile kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 rows cannot be read.</source>
        <translation>%1 Zeilen können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The header of the file is damaged; no row is lost by that.</source>
        <translation>Der Kopf der Datei ist beschädigt; dadurch geht keine Zeile verloren.</translation>
    </message>
    <message>
        <source>The file ends within this page.</source>
        <translation>Die Datei endet mitten in dieser Seite.</translation>
    </message>
    <message>
        <source>The map of free pages is damaged; no row is lost by that.</source>
        <translation>Das Verzeichnis der freien Seiten ist beschädigt; dadurch geht keine Zeile verloren.</translation>
    </message>
    <message>
        <source>The list of the file&apos;s tables is damaged.</source>
        <translation>Die Liste der Tabellen der Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>The definition of the table is damaged; its rows were read as this program makes them.</source>
        <translation>Die Beschreibung der Tabelle ist beschädigt; ihre Zeilen wurden so gelesen, wie dieses Programm sie anlegt.</translation>
    </message>
    <message>
        <source>The definition of the table is damaged; none of its rows can be read.</source>
        <translation>Die Beschreibung der Tabelle ist beschädigt; keine ihrer Zeilen kann gelesen werden.</translation>
    </message>
    <message>
        <source>The page holds rows, but the table&apos;s definition is damaged.</source>
        <translation>Die Seite enthält Zeilen, aber die Beschreibung der Tabelle ist beschädigt.</translation>
    </message>
    <message>
        <source>The name of the table is lost; it was named by its columns.</source>
        <translation>Der Name der Tabelle ist verloren; sie wurde nach ihren Spalten benannt.</translation>
    </message>
    <message>
        <source>The table should have %1 rows; %2 were found.</source>
        <translation>Die Tabelle müsste %1 Zeilen haben; gefunden wurden %2.</translation>
    </message>
    <message>
        <source>A text of the column %1 cannot be read; it is left empty.</source>
        <translation>Ein Text der Spalte %1 kann nicht gelesen werden; er bleibt leer.</translation>
    </message>
    <message>
        <source>The page is damaged; its rows are lost.</source>
        <translation>Die Seite ist beschädigt; ihre Zeilen sind verloren.</translation>
    </message>
    <message>
        <source>The page is missing: the file ends before it.</source>
        <translation>Die Seite fehlt: Die Datei endet vor ihr.</translation>
    </message>
    <message>
        <source>The list of the table&apos;s pages is damaged; they were looked for in the whole file.</source>
        <translation>Die Liste der Seiten der Tabelle ist beschädigt; sie wurden in der ganzen Datei gesucht.</translation>
    </message>
    <message>
        <source>The page with the definition of the table is damaged.</source>
        <translation>Die Seite mit der Beschreibung der Tabelle ist beschädigt.</translation>
    </message>
    <message>
        <source>The page is damaged; it belongs to an index, so no row is lost by that.</source>
        <translation>Die Seite ist beschädigt; sie gehört zu einem Index, daher geht keine Zeile verloren.</translation>
    </message>
    <message>
        <source>The page is damaged; the long texts on it are lost.</source>
        <translation>Die Seite ist beschädigt; die langen Texte darauf sind verloren.</translation>
    </message>
    <message>
        <source>The link says sslmode=%1: whoever stands between this machine and the server could pass for it. Without that word it is sslmode=verify-full.</source>
        <translation>Im Verweis steht sslmode=%1: Wer zwischen diesem Rechner und dem Server steht, könnte sich für ihn ausgeben. Ohne dieses Wort gilt sslmode=verify-full.</translation>
    </message>
    <message>
        <source>A log lies beside the file that is older than the file; it was not read.</source>
        <translation>Neben der Datei liegt ein Protokoll, das älter ist als die Datei; es wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The list of tables is damaged; those missing in it were known again by their rows.</source>
        <translation>Die Liste der Tabellen ist beschädigt; die darin fehlen, wurden an ihren Zeilen wiedererkannt.</translation>
    </message>
    <message>
        <source>The page is damaged; no row is lost by that.</source>
        <translation>Die Seite ist beschädigt; dadurch geht keine Zeile verloren.</translation>
    </message>
    <message>
        <source>The definition of the table is damaged, or of a kind that is not read here.</source>
        <translation>Die Beschreibung der Tabelle ist beschädigt oder von einer Art, die hier nicht gelesen wird.</translation>
    </message>
    <message>
        <source>The page is damaged; what was on it is lost.</source>
        <translation>Die Seite ist beschädigt; was auf ihr stand, ist verloren.</translation>
    </message>
    <message>
        <source>The page holds 1 row, but of which table cannot be told.</source>
        <translation>Die Seite enthält 1 Zeile, aber von welcher Tabelle, lässt sich nicht sagen.</translation>
    </message>
    <message>
        <source>The page holds %1 rows, but of which table cannot be told.</source>
        <translation>Die Seite enthält %1 Zeilen, aber von welcher Tabelle, lässt sich nicht sagen.</translation>
    </message>
    <message>
        <source>The page is damaged; what it held cannot be told.</source>
        <translation>Die Seite ist beschädigt; was auf ihr stand, lässt sich nicht sagen.</translation>
    </message>
    <message>
        <source>A row has the number of another, and was left out.</source>
        <translation>Eine Zeile hat die Nummer einer anderen und wurde ausgelassen.</translation>
    </message>
    <message>
        <source>The calendar has no facilities yet.</source>
        <translation>Der Kalender hat noch keine Anlagen.</translation>
    </message>
    <message>
        <source>The facilities are: %1.</source>
        <translation>Die Anlagen sind: %1.</translation>
    </message>
    <message>
        <source>There is no facility &quot;%1&quot;.</source>
        <translation>Es gibt keine Anlage „%1“.</translation>
    </message>
    <message>
        <source>Of a facility that is not there: %1.</source>
        <translation>Von einer Anlage, die es nicht gibt: %1.</translation>
    </message>
    <message>
        <source>No window shows it. Export it, then import it with --facility, or restore a backup.</source>
        <translation>Kein Fenster zeigt sie. Exportieren Sie sie, und importieren Sie sie dann mit --facility, oder spielen Sie eine Sicherungskopie zurück.</translation>
    </message>
    <message>
        <source>Its date cannot be read: %1.</source>
        <translation>Ihr Datum kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>No window shows it. Correct the date with another program, or book it anew.</source>
        <translation>Kein Fenster zeigt sie. Berichtigen Sie das Datum mit einem anderen Programm, oder buchen Sie sie neu.</translation>
    </message>
    <message>
        <source>A time of day stands with its date: %1.</source>
        <translation>Bei ihrem Datum steht eine Uhrzeit: %1.</translation>
    </message>
    <message>
        <source>No window shows it. Book it anew.</source>
        <translation>Kein Fenster zeigt sie. Buchen Sie sie neu.</translation>
    </message>
    <message>
        <source>Its half hours are none of 1 to 48: %1.</source>
        <translation>Ihre halben Stunden sind keine von 1 bis 48: %1.</translation>
    </message>
    <message>
        <source>Book it anew with the right times, and delete this one.</source>
        <translation>Buchen Sie sie neu mit den richtigen Zeiten, und löschen Sie diese.</translation>
    </message>
    <message>
        <source>It ends before it begins: %1.</source>
        <translation>Sie endet, bevor sie beginnt: %1.</translation>
    </message>
    <message>
        <source>--mend puts its two ends in order.</source>
        <translation>--mend bringt ihre beiden Enden in Ordnung.</translation>
    </message>
    <message>
        <source>The two ends were put in order.</source>
        <translation>Die beiden Enden wurden in Ordnung gebracht.</translation>
    </message>
    <message>
        <source>Its name is longer than the file&apos;s column: %1.</source>
        <translation>Ihr Name ist länger als die Spalte der Datei: %1.</translation>
    </message>
    <message>
        <source>Other programs may cut it. Rename the booking.</source>
        <translation>Andere Programme können ihn abschneiden. Benennen Sie die Buchung um.</translation>
    </message>
    <message>
        <source>%1 overlaps %2.</source>
        <translation>%1 überschneidet sich mit %2.</translation>
    </message>
    <message>
        <source>Delete one of the two, or book it at another time.</source>
        <translation>Löschen Sie eine der beiden, oder buchen Sie sie zu einer anderen Zeit.</translation>
    </message>
    <message>
        <source>The %1 bookings of group %2 differ in their names: %3.</source>
        <translation>Die %1 Buchungen der Gruppe %2 unterscheiden sich in ihren Namen: %3.</translation>
    </message>
    <message>
        <source>The %1 bookings of group %2 differ in their names and times: %3.</source>
        <translation>Die %1 Buchungen der Gruppe %2 unterscheiden sich in ihren Namen und Zeiten: %3.</translation>
    </message>
    <message>
        <source>The %1 bookings of group %2 differ in their times: %3.</source>
        <translation>Die %1 Buchungen der Gruppe %2 unterscheiden sich in ihren Zeiten: %3.</translation>
    </message>
    <message>
        <source>Nothing to do when one was renamed on purpose; else rename or delete them one by one.</source>
        <translation>Wurde eine absichtlich umbenannt, ist nichts zu tun; sonst benennen Sie sie einzeln um oder löschen sie einzeln.</translation>
    </message>
    <message>
        <source>%1 was left by a calendar that was not closed properly.</source>
        <translation>%1 hat ein Kalender hinterlassen, der nicht richtig geschlossen wurde.</translation>
    </message>
    <message>
        <source>Start the calendar once and close it. Never move or remove one of the two files without the other.</source>
        <translation>Starten Sie den Kalender einmal, und schließen Sie ihn. Verschieben oder entfernen Sie nie eine der beiden Dateien ohne die andere.</translation>
    </message>
    <message>
        <source>%1 was left by a command that broke off.</source>
        <translation>%1 hat ein Befehl hinterlassen, der abgebrochen ist.</translation>
    </message>
    <message>
        <source>Remove it when no veyra-data is running.</source>
        <translation>Entfernen Sie es, wenn kein veyra-data läuft.</translation>
    </message>
    <message>
        <source>The guest database Veyra.mdb: %1</source>
        <translation>Die Datenbank der Gäste Veyra.mdb: %1</translation>
    </message>
    <message>
        <source>The newest copy in backups is of %1.</source>
        <translation>Die neueste Kopie in backups ist vom %1.</translation>
    </message>
    <message>
        <source>There is no copy in backups.</source>
        <translation>In backups liegt keine Kopie.</translation>
    </message>
    <message>
        <source>Run &quot;veyra-data backup --rolling&quot; and see what it says.</source>
        <translation>Starten Sie „veyra-data backup --rolling“, und sehen Sie, was es meldet.</translation>
    </message>
    <message>
        <source>%1 facilities are marked as the active one.</source>
        <translation>%1 Anlagen sind als die gewählte gekennzeichnet.</translation>
    </message>
    <message>
        <source>--mend leaves the mark to %1, as the calendar would.</source>
        <translation>--mend lässt das Kennzeichen bei %1, wie es der Kalender täte.</translation>
    </message>
    <message>
        <source>The mark was left to %1.</source>
        <translation>Das Kennzeichen wurde bei %1 gelassen.</translation>
    </message>
    <message>
        <source>No facility is marked as the active one.</source>
        <translation>Keine Anlage ist als die gewählte gekennzeichnet.</translation>
    </message>
    <message>
        <source>--mend marks the first, %1; or pick one in the calendar.</source>
        <translation>--mend kennzeichnet die erste, %1; oder wählen Sie eine im Kalender.</translation>
    </message>
    <message>
        <source>%1 was marked as the active facility.</source>
        <translation>%1 wurde als die gewählte Anlage gekennzeichnet.</translation>
    </message>
    <message>
        <source>Two facilities are named %1.</source>
        <translation>Zwei Anlagen heißen %1.</translation>
    </message>
    <message>
        <source>Only one of them can be picked. --mend names the other %1.</source>
        <translation>Nur eine davon kann gewählt werden. --mend nennt die andere %1.</translation>
    </message>
    <message>
        <source>The later one was named %1.</source>
        <translation>Die spätere wurde %1 genannt.</translation>
    </message>
    <message>
        <source>The table Settings has no row 1, so the calendar cannot start.</source>
        <translation>Die Tabelle Settings hat keine Zeile 1, daher kann der Kalender nicht starten.</translation>
    </message>
    <message>
        <source>--mend adds the row with the colours of a new calendar.</source>
        <translation>--mend fügt die Zeile mit den Farben eines neuen Kalenders hinzu.</translation>
    </message>
    <message>
        <source>The row was added with the colours of a new calendar.</source>
        <translation>Die Zeile wurde mit den Farben eines neuen Kalenders hinzugefügt.</translation>
    </message>
    <message>
        <source>The colour %1 is not a number: &quot;%2&quot;.</source>
        <translation>Die Farbe %1 ist keine Zahl: „%2“.</translation>
    </message>
    <message>
        <source>--mend sets it to %1, as in a new calendar.</source>
        <translation>--mend setzt sie auf %1, wie in einem neuen Kalender.</translation>
    </message>
    <message>
        <source>%1 was set to %2.</source>
        <translation>%1 wurde auf %2 gesetzt.</translation>
    </message>
    <message>
        <source>Nothing was made. Check the original with &quot;veyra-data check&quot;.</source>
        <translation>Es wurde nichts angelegt. Prüfen Sie das Original mit „veyra-data check“.</translation>
    </message>
    <message>
        <source>The copy is not sound: %1</source>
        <translation>Die Kopie ist nicht in Ordnung: %1</translation>
    </message>
    <message>
        <source>The copy could not be completed.</source>
        <translation>Die Kopie konnte nicht fertiggestellt werden.</translation>
    </message>
    <message>
        <source>The copy could not be put there: %1.</source>
        <translation>Die Kopie konnte nicht dorthin gebracht werden: %1.</translation>
    </message>
    <message>
        <source>Choose another name, or a folder that you may write to.</source>
        <translation>Wählen Sie einen anderen Namen oder einen Ordner, in den Sie schreiben dürfen.</translation>
    </message>
    <message>
        <source>A row was left out: %1 holds &quot;%2&quot;.</source>
        <translation>Eine Zeile wurde ausgelassen: In %1 steht „%2“.</translation>
    </message>
    <message>
        <source>A row was left out: %1 holds &quot;%2&quot;, which another row has.</source>
        <translation>Eine Zeile wurde ausgelassen: In %1 steht „%2“, was schon eine andere Zeile hat.</translation>
    </message>
    <message>
        <source>The column %1 holds pictures or other objects, which are left out.</source>
        <translation>Die Spalte %1 enthält Bilder oder andere Objekte, die ausgelassen werden.</translation>
    </message>
    <message>
        <source>A second table of that name was left out.</source>
        <translation>Eine zweite Tabelle dieses Namens wurde ausgelassen.</translation>
    </message>
    <message>
        <source>It could not be written into the new file. %1</source>
        <translation>Sie konnte nicht in die neue Datei geschrieben werden. %1</translation>
    </message>
    <message>
        <source>No such table was found; it was made without rows.</source>
        <translation>Eine solche Tabelle wurde nicht gefunden; sie wurde ohne Zeilen angelegt.</translation>
    </message>
    <message>
        <source>The new file is not right: %1</source>
        <translation>Die neue Datei stimmt nicht: %1</translation>
    </message>
    <message>
        <source>Nothing was made. Please report this.</source>
        <translation>Es wurde nichts angelegt. Bitte melden Sie dies.</translation>
    </message>
    <message>
        <source>No table of it can be read any more.</source>
        <translation>Keine ihrer Tabellen kann noch gelesen werden.</translation>
    </message>
    <message>
        <source>Nothing was made. Go back to a copy of the file.</source>
        <translation>Es wurde nichts angelegt. Kehren Sie zu einer Kopie der Datei zurück.</translation>
    </message>
    <message>
        <source>Somebody has the calendar open.</source>
        <translation>Jemand hat den Kalender geöffnet.</translation>
    </message>
    <message>
        <source>Nothing was changed. Close it at every desk, and try again.</source>
        <translation>Es wurde nichts geändert. Schließen Sie ihn an jedem Arbeitsplatz, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The calendar is shared with other desks, on a server.</source>
        <translation>Der Kalender liegt gemeinsam mit anderen Arbeitsplätzen auf einem Server.</translation>
    </message>
    <message>
        <source>Nothing was changed. To put a backup on the server, share it from another folder into another schema, and let every desk&apos;s link lead there.</source>
        <translation>Es wurde nichts geändert. Um eine Sicherungskopie auf den Server zu bringen, teilen Sie sie mit share aus einem anderen Ordner in ein anderes Schema, und lassen Sie den Verweis jedes Arbeitsplatzes dorthin führen.</translation>
    </message>
    <message>
        <source>The old file could not be kept: %1.</source>
        <translation>Die alte Datei konnte nicht aufgehoben werden: %1.</translation>
    </message>
    <message>
        <source>Nothing was changed. Check that you may make files in the folder.</source>
        <translation>Es wurde nichts geändert. Prüfen Sie, ob Sie in dem Ordner Dateien anlegen dürfen.</translation>
    </message>
    <message>
        <source>A log lies where no calendar is, and would be taken for the restored one&apos;s.</source>
        <translation>Wo kein Kalender ist, liegt ein Protokoll; es würde für das des zurückgespielten gehalten.</translation>
    </message>
    <message>
        <source>Nothing was changed. Move it away first.</source>
        <translation>Es wurde nichts geändert. Räumen Sie es zuerst weg.</translation>
    </message>
    <message>
        <source>The backup could not be put there: %1.</source>
        <translation>Die Sicherungskopie konnte nicht dorthin gebracht werden: %1.</translation>
    </message>
    <message>
        <source>The folder cannot be read: %1.</source>
        <translation>Der Ordner kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The file to make is not named.</source>
        <translation>Die Datei, die angelegt werden soll, ist nicht genannt.</translation>
    </message>
    <message>
        <source>Name it, or say --rolling for a copy in the folder backups.</source>
        <translation>Nennen Sie sie, oder geben Sie für eine Kopie im Ordner backups --rolling an.</translation>
    </message>
    <message>
        <source>Made and checked %1.</source>
        <translation>Angelegt und geprüft: %1.</translation>
    </message>
    <message>
        <source>%1 is there already; nothing was made.</source>
        <translation>%1 ist schon da; es wurde nichts angelegt.</translation>
    </message>
    <message>
        <source>Made and checked %1; %2 old copies removed.</source>
        <translation>Angelegt und geprüft: %1; alte Kopien entfernt: %2.</translation>
    </message>
    <message>
        <source>the copy to make; not given with --rolling</source>
        <translation>die Kopie, die angelegt wird; entfällt mit --rolling</translation>
    </message>
    <message>
        <source>today&apos;s copy, in the folder backups: seven days, four weeks, twelve months stay</source>
        <translation>die Kopie von heute, im Ordner backups: sieben Tage, vier Wochen, zwölf Monate bleiben</translation>
    </message>
    <message>
        <source>with --rolling: nothing when today&apos;s copy is there</source>
        <translation>mit --rolling: nichts, wenn die Kopie von heute da ist</translation>
    </message>
    <message>
        <source>Make a checked copy of the calendar, also while it is open</source>
        <translation>Legt eine geprüfte Kopie des Kalenders an, auch während er geöffnet ist</translation>
    </message>
    <message>
        <source>The copy is checked, and appears under its name only when it is whole. A file that is there already is never written over; with --rolling, today&apos;s copy is made anew. Once there is a folder backups the calendar makes the day&apos;s first copy by itself.</source>
        <translation>Die Kopie wird geprüft und erscheint unter ihrem Namen erst, wenn sie vollständig ist. Eine Datei, die schon da ist, wird nie überschrieben; mit --rolling wird die Kopie von heute neu angelegt. Sobald es einen Ordner backups gibt, legt der Kalender die erste Kopie des Tages selbst an.</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>Die Datei ist beschädigt: %1</translation>
    </message>
    <message>
        <source>Restore a backup with &quot;veyra-data restore-backup&quot;.</source>
        <translation>Spielen Sie mit „veyra-data restore-backup“ eine Sicherungskopie zurück.</translation>
    </message>
    <message>
        <source>There is nothing that --mend could do.</source>
        <translation>Es gibt nichts, was --mend tun könnte.</translation>
    </message>
    <message>
        <source>Mend %1 of these %2, and keep a copy?</source>
        <translation>%1 von diesen %2 beheben und eine Kopie aufheben?</translation>
    </message>
    <message>
        <source>Nothing was changed.</source>
        <translation>Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>The calendar as it was is kept as %1.</source>
        <translation>Der Kalender, wie er war, ist als %1 aufgehoben.</translation>
    </message>
    <message>
        <source>%1: nothing is wrong.</source>
        <translation>%1: Alles ist in Ordnung.</translation>
    </message>
    <message>
        <source>the data folder, or one database file of any contents; else the folder that path.txt beside the program names</source>
        <translation>der Datenordner oder eine einzelne Datenbankdatei beliebigen Inhalts; sonst der Ordner, den path.txt neben dem Programm nennt</translation>
    </message>
    <message>
        <source>put right what can be put right without losing anything</source>
        <translation>beheben, was sich beheben lässt, ohne dass etwas verloren geht</translation>
    </message>
    <message>
        <source>do not ask before mending</source>
        <translation>vor dem Beheben nicht fragen</translation>
    </message>
    <message>
        <source>print for programs</source>
        <translation>für Programme ausgeben</translation>
    </message>
    <message>
        <source>Print everything that is wrong with a calendar</source>
        <translation>Gibt alles aus, was an einem Kalender nicht stimmt</translation>
    </message>
    <message>
        <source>A line for each thing, with what to do; status 1 when there is any. The file is gone through page by page, and then what the bookings say. The calendar may be open. --mend asks first, and keeps the calendar as it was as Calendar-before-DATE.mdb.</source>
        <translation>Je Sache eine Zeile, mit dem, was zu tun ist; Status 1, wenn es eine gibt. Die Datei wird Seite für Seite durchgesehen, dann, was in den Buchungen steht. Der Kalender darf geöffnet sein. --mend fragt zuerst und hebt den Kalender, wie er war, als Calendar-before-DATUM.mdb auf.</translation>
    </message>
    <message>
        <source>Try &quot;veyra-data --help&quot;.</source>
        <translation>Versuchen Sie „veyra-data --help“.</translation>
    </message>
    <message>
        <source>Makes and looks after the data of Veyra Calendar.</source>
        <translation>Legt die Daten von Veyra Calendar an und betreut sie.</translation>
    </message>
    <message>
        <source>Exit status: 0 fine, 1 something found or nothing done, 2 failed.</source>
        <translation>Status am Ende: 0 gut, 1 etwas gefunden oder nichts getan, 2 misslungen.</translation>
    </message>
    <message>
        <source>It has %1 queries, forms, reports or other objects, which would be lost.</source>
        <translation>Sie hat %1 Abfragen, Formulare, Berichte oder andere Objekte, die verloren gingen.</translation>
    </message>
    <message>
        <source>Nothing was changed. Open it in Access and choose Compact and Repair.</source>
        <translation>Es wurde nichts geändert. Öffnen Sie sie in Access, und wählen Sie „Datenbank komprimieren und reparieren“.</translation>
    </message>
    <message>
        <source>It is of a kind that is only read.</source>
        <translation>Sie ist von einer Art, die nur gelesen wird.</translation>
    </message>
    <message>
        <source>Nothing was changed. Convert it with veyra-data convert.</source>
        <translation>Es wurde nichts geändert. Wandeln Sie sie mit veyra-data convert um.</translation>
    </message>
    <message>
        <source>Beside it lies the older file %1.</source>
        <translation>Daneben liegt die ältere Datei %1.</translation>
    </message>
    <message>
        <source>%1 is a SQLite file, which needs no compacting; nothing was changed.</source>
        <translation>%1 ist eine SQLite-Datei und muss nicht verdichtet werden; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>%1 is on a server, which needs no compacting; nothing was changed.</source>
        <translation>%1 liegt auf einem Server und muss nicht verdichtet werden; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>%1 had %2 and has %3 now, %4 less: %5 tables, %6 rows, all compared.</source>
        <translation>%1 hatte %2 und hat jetzt %3, %4 weniger: %5 Tabellen, %6 Zeilen, alle verglichen.</translation>
    </message>
    <message>
        <source>the data folder</source>
        <translation>der Datenordner</translation>
    </message>
    <message>
        <source>Make Calendar.mdb anew without its holes</source>
        <translation>Legt Calendar.mdb ohne ihre Lücken neu an</translation>
    </message>
    <message>
        <source>All its tables, columns and rows are copied into a new file, where every row is compared; the old file is kept until then. Nobody may have the calendar open.</source>
        <translation>Alle Tabellen, Spalten und Zeilen werden in eine neue Datei kopiert, in der jede Zeile verglichen wird; so lange bleibt die alte Datei. Niemand darf den Kalender geöffnet haben.</translation>
    </message>
    <message>
        <source>y</source>
        <translation>j</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>%1 [y/N]</source>
        <translation>%1 [j/N]</translation>
    </message>
    <message>
        <source>%1 is an Access file now: %2 tables, %3 rows, all compared.</source>
        <translation>%1 ist jetzt eine Access-Datei: %2 Tabellen, %3 Zeilen, alle verglichen.</translation>
    </message>
    <message>
        <source>%1 is a SQLite file now: %2 tables, %3 rows, all compared.</source>
        <translation>%1 ist jetzt eine SQLite-Datei: %2 Tabellen, %3 Zeilen, alle verglichen.</translation>
    </message>
    <message>
        <source>%1 is an Access file already; nothing was changed.</source>
        <translation>%1 ist schon eine Access-Datei; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>%1 is a SQLite file already; nothing was changed.</source>
        <translation>%1 ist schon eine SQLite-Datei; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>The old file is kept as %1.</source>
        <translation>Die alte Datei ist als %1 aufgehoben.</translation>
    </message>
    <message>
        <source>The calendar on the server stays as it is: desks that have a link still book there.</source>
        <translation>Der Kalender auf dem Server bleibt, wie er ist: Arbeitsplätze, die einen Verweis haben, buchen weiterhin dort.</translation>
    </message>
    <message>
        <source>the kind of file to make: sqlite (the default) or access</source>
        <translation>die Art der neuen Datei: sqlite (wenn nichts angegeben ist) oder access</translation>
    </message>
    <message>
        <source>Make Calendar.mdb a file of the other kind</source>
        <translation>Macht aus Calendar.mdb eine Datei der anderen Art</translation>
    </message>
    <message>
        <source>All its tables, columns and rows are copied; queries, forms and reports are left out. Every row is compared, and the old file stays beside the new one as Calendar-before-DATE.mdb. Nobody may have the calendar open.</source>
        <translation>Alle Tabellen, Spalten und Zeilen werden kopiert; Abfragen, Formulare und Berichte werden ausgelassen. Jede Zeile wird verglichen, und die alte Datei bleibt als Calendar-before-DATUM.mdb neben der neuen. Niemand darf den Kalender geöffnet haben.</translation>
    </message>
    <message>
        <source>Name the data folder on the command line, or write it into that file.</source>
        <translation>Nennen Sie den Datenordner in der Befehlszeile, oder schreiben Sie ihn in jene Datei.</translation>
    </message>
    <message>
        <source>No data folder was named, and there is no such file.</source>
        <translation>Es wurde kein Datenordner genannt, und diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>The first line of the file names no folder.</source>
        <translation>Die erste Zeile der Datei nennt keinen Ordner.</translation>
    </message>
    <message>
        <source>the data folder; else the one that path.txt beside the program names</source>
        <translation>der Datenordner; sonst der, den path.txt neben dem Programm nennt</translation>
    </message>
    <message>
        <source>the first day, such as 3/5/2026 or 2026-03-05</source>
        <translation>der erste Tag, etwa 3/5/2026 (Monat zuerst) oder 2026-03-05</translation>
    </message>
    <message>
        <source>the last day</source>
        <translation>der letzte Tag</translation>
    </message>
    <message>
        <source>Write it as month/day/year, 3/5/2026, or as 2026-03-05.</source>
        <translation>Schreiben Sie es als Monat/Tag/Jahr, 3/5/2026, oder als 2026-03-05.</translation>
    </message>
    <message>
        <source>The range ends before it begins.</source>
        <translation>Der Zeitraum endet, bevor er beginnt.</translation>
    </message>
    <message>
        <source>Name the earlier day with --from.</source>
        <translation>Nennen Sie den früheren Tag mit --from.</translation>
    </message>
    <message>
        <source>Exported %1 bookings.</source>
        <translation>Exportierte Buchungen: %1.</translation>
    </message>
    <message>
        <source>%1 damaged bookings were left out; &quot;veyra-data check&quot; names them.</source>
        <translation>Ausgelassene beschädigte Buchungen: %1; „veyra-data check“ nennt sie.</translation>
    </message>
    <message>
        <source>the file to make; &quot;-&quot; for the ordinary output</source>
        <translation>die Datei, die angelegt wird; „-“ für die gewöhnliche Ausgabe</translation>
    </message>
    <message>
        <source>only this facility</source>
        <translation>nur diese Anlage</translation>
    </message>
    <message>
        <source>write over FILE when it is there</source>
        <translation>FILE überschreiben, wenn es sie gibt</translation>
    </message>
    <message>
        <source>Write bookings to an iCalendar or CSV file</source>
        <translation>Schreibt Buchungen in eine iCalendar- oder CSV-Datei</translation>
    </message>
    <message>
        <source>Times are local ones without a zone. The facility is the category of an event; the events of one series are related to each other. Cells of a CSV file that a spreadsheet would take for formulas get an apostrophe, which import takes away again.</source>
        <translation>Zeiten sind hiesige ohne Zeitzone. Die Anlage ist die Kategorie eines Ereignisses; die Ereignisse einer Serie sind miteinander verbunden. Zellen einer CSV-Datei, die eine Tabellenkalkulation für Formeln hielte, bekommen einen Apostroph, den import wieder wegnimmt.</translation>
    </message>
    <message>
        <source>ics or csv; else the end of FILE&apos;s name says which</source>
        <translation>ics oder csv; sonst sagt es das Ende des Namens von FILE</translation>
    </message>
    <message>
        <source>The name ends neither in .ics nor in .csv.</source>
        <translation>Der Name endet weder auf .ics noch auf .csv.</translation>
    </message>
    <message>
        <source>Say with --format which of the two the file is.</source>
        <translation>Geben Sie mit --format an, welches von beiden die Datei ist.</translation>
    </message>
    <message>
        <source>There is and was no facility &quot;%1&quot;.</source>
        <translation>Eine Anlage „%1“ gibt und gab es nicht.</translation>
    </message>
    <message>
        <source>Run &quot;veyra-data history&quot; without --facility to see the names.</source>
        <translation>Starten Sie „veyra-data history“ ohne --facility, um die Namen zu sehen.</translation>
    </message>
    <message>
        <source>%1: No journal is kept. Begin one with &quot;journal on&quot;.</source>
        <translation>%1: Es wird kein Journal geführt. Beginnen Sie eines mit „journal on“.</translation>
    </message>
    <message>
        <source>%1 earlier ones are not shown; --last 0 shows all.</source>
        <translation>%1 frühere werden nicht gezeigt; --last 0 zeigt alle.</translation>
    </message>
    <message>
        <source>only what was done on this day or later</source>
        <translation>nur was an diesem Tag oder später geschah</translation>
    </message>
    <message>
        <source>only what was done on this day or earlier</source>
        <translation>nur was an diesem Tag oder früher geschah</translation>
    </message>
    <message>
        <source>only this facility, also one that is gone</source>
        <translation>nur diese Anlage, auch eine, die es nicht mehr gibt</translation>
    </message>
    <message>
        <source>only bookings of this day</source>
        <translation>nur Buchungen dieses Tages</translation>
    </message>
    <message>
        <source>only names with this in them, in any letter case</source>
        <translation>nur Namen, in denen dies vorkommt, groß oder klein geschrieben</translation>
    </message>
    <message>
        <source>so many, the last ones; 20 unless it is given; 0: all</source>
        <translation>so viele, die letzten; 20, wenn nichts angegeben ist; 0: alle</translation>
    </message>
    <message>
        <source>every row of an action, not only the first ten</source>
        <translation>jede Zeile einer Handlung, nicht nur die ersten zehn</translation>
    </message>
    <message>
        <source>Print who did what to the calendar, the last first</source>
        <translation>Gibt aus, wer was am Kalender getan hat, das Letzte zuerst</translation>
    </message>
    <message>
        <source>A line for each action, with its number, and one for each row: &quot;+&quot; was added, &quot;-&quot; deleted, &quot;~&quot; changed. What another program did is in it, too, in SQLite files. Which facility was picked is not listed. Status 1 says that there is nothing to list.</source>
        <translation>Eine Zeile für jede Handlung, mit ihrer Nummer, und eine für jede Zeile der Tabellen: „+“ wurde hinzugefügt, „-“ gelöscht, „~“ geändert. In SQLite-Dateien steht auch darin, was ein anderes Programm tat. Welche Anlage gewählt wurde, wird nicht aufgeführt. Status 1 sagt, dass es nichts aufzuführen gibt.</translation>
    </message>
    <message>
        <source>The file is not text.</source>
        <translation>Die Datei ist kein Text.</translation>
    </message>
    <message>
        <source>Nothing was changed. Name another file.</source>
        <translation>Es wurde nichts geändert. Nennen Sie eine andere Datei.</translation>
    </message>
    <message>
        <source>note: %1</source>
        <translation>Hinweis: %1</translation>
    </message>
    <message>
        <source>clash: %1</source>
        <translation>Überschneidung: %1</translation>
    </message>
    <message>
        <source>would add: %1</source>
        <translation>würde hinzugefügt: %1</translation>
    </message>
    <message>
        <source>Added %1 bookings; %2 were there already, %3 clash.</source>
        <translation>Hinzugefügte Buchungen: %1; schon da: %2, im Weg ist etwas bei: %3.</translation>
    </message>
    <message>
        <source>Nothing was written: %1 bookings could be added.</source>
        <translation>Es wurde nichts geschrieben: Buchungen, die hinzugefügt werden könnten: %1.</translation>
    </message>
    <message>
        <source>Nothing was written: %1 bookings could be added with --skip-clashes.</source>
        <translation>Es wurde nichts geschrieben: Buchungen, die mit --skip-clashes hinzugefügt werden könnten: %1.</translation>
    </message>
    <message>
        <source>the iCalendar or CSV file</source>
        <translation>die iCalendar- oder CSV-Datei</translation>
    </message>
    <message>
        <source>book all for this facility</source>
        <translation>alle für diese Anlage buchen</translation>
    </message>
    <message>
        <source>leave out what clashes, add the rest</source>
        <translation>auslassen, wofür etwas im Weg ist, den Rest hinzufügen</translation>
    </message>
    <message>
        <source>only say what would be done</source>
        <translation>nur sagen, was getan würde</translation>
    </message>
    <message>
        <source>Add the bookings of an iCalendar or CSV file</source>
        <translation>Fügt die Buchungen einer iCalendar- oder CSV-Datei hinzu</translation>
    </message>
    <message>
        <source>All or nothing: when the time of a booking is taken, nothing is written and the clashes are listed. The same file twice changes nothing. Facilities are found by name: in the categories or the place of an event, in the column Facility of a CSV file, whose first line names the columns Facility, Date, From, To, Name and Series. Times are rounded outwards to half hours; repetitions are booked one by one inside --from and --to.</source>
        <translation>Alles oder nichts: Ist die Zeit einer Buchung belegt, wird nichts geschrieben, und die Überschneidungen werden aufgeführt. Dieselbe Datei zweimal ändert nichts. Anlagen werden am Namen gefunden: in den Kategorien oder am Ort eines Ereignisses, in der Spalte Facility einer CSV-Datei, deren erste Zeile die Spalten Facility, Date, From, To, Name und Series nennt. Zeiten werden nach außen auf halbe Stunden gerundet; Wiederholungen werden einzeln gebucht, innerhalb von --from und --to.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time to keep entries for.</source>
        <translation>„%1“ ist keine Dauer, für die Einträge aufgehoben werden können.</translation>
    </message>
    <message>
        <source>Write it as 2y, 8w or 90d.</source>
        <translation>Schreiben Sie sie als 2y (Jahre), 8w (Wochen) oder 90d (Tage).</translation>
    </message>
    <message>
        <source>%1: The journal is kept; it holds %2 actions.</source>
        <translation>%1: Das Journal wird geführt; darin stehen %2 Handlungen.</translation>
    </message>
    <message>
        <source>%1: The journal is not kept; it holds %2 actions.</source>
        <translation>%1: Das Journal wird nicht geführt; darin stehen %2 Handlungen.</translation>
    </message>
    <message>
        <source>%1: The journal is kept; it holds %2 actions, the first of %3.</source>
        <translation>%1: Das Journal wird geführt; darin stehen %2 Handlungen, die erste vom %3.</translation>
    </message>
    <message>
        <source>%1: The journal is not kept; it holds %2 actions, the first of %3.</source>
        <translation>%1: Das Journal wird nicht geführt; darin stehen %2 Handlungen, die erste vom %3.</translation>
    </message>
    <message>
        <source>%1: The journal is kept already.</source>
        <translation>%1: Das Journal wird schon geführt.</translation>
    </message>
    <message>
        <source>%1: The journal is not kept already.</source>
        <translation>%1: Das Journal wird schon nicht geführt.</translation>
    </message>
    <message>
        <source>%1: The journal is kept from now on.</source>
        <translation>%1: Das Journal wird von jetzt an geführt.</translation>
    </message>
    <message>
        <source>%1: The journal is not kept any more; what it holds stays.</source>
        <translation>%1: Das Journal wird nicht mehr geführt; was darin steht, bleibt.</translation>
    </message>
    <message>
        <source>Removed %1 entries that are older than %2 days.</source>
        <translation>Entfernte Einträge, die älter sind als %2 Tage: %1.</translation>
    </message>
    <message>
        <source>on, off or status</source>
        <translation>on, off oder status</translation>
    </message>
    <message>
        <source>remove older entries: 2y (the default), 8w, 90d</source>
        <translation>ältere Einträge entfernen: 2y (wenn nichts angegeben ist), 8w, 90d</translation>
    </message>
    <message>
        <source>Begin or end the journal that history and undo read</source>
        <translation>Beginnt oder beendet das Journal, das history und undo lesen</translation>
    </message>
    <message>
        <source>A calendar that &quot;new&quot; made keeps one. With off, what it holds stays. The calendar may be open. Entries older than two years go, now and whenever &quot;undo&quot;, &quot;restore&quot; or &quot;backup --rolling&quot; are done.</source>
        <translation>Ein Kalender, den „new“ angelegt hat, führt eines. Mit off bleibt, was darin steht. Der Kalender darf geöffnet sein. Einträge, die älter sind als zwei Jahre, gehen, jetzt und immer bei „undo“, „restore“ oder „backup --rolling“.</translation>
    </message>
    <message>
        <source>the server, as PostgreSQL&apos;s programs name it: a URI or service=NAME</source>
        <translation>der Server, wie ihn die Programme von PostgreSQL nennen: ein URI oder service=NAME</translation>
    </message>
    <message>
        <source>the schema of the database that holds the calendar (veyra unless given)</source>
        <translation>das Schema der Datenbank, in dem der Kalender liegt (veyra, wenn nichts angegeben ist)</translation>
    </message>
    <message>
        <source>%1 leads to the shared calendar now.</source>
        <translation>%1 führt jetzt zum gemeinsamen Kalender.</translation>
    </message>
    <message>
        <source>Make the link to a calendar that is shared already</source>
        <translation>Legt den Verweis auf einen Kalender an, der schon gemeinsam ist</translation>
    </message>
    <message>
        <source>For each further desk. The server is asked first; a Calendar.mdb that is there is never written over.</source>
        <translation>Für jeden weiteren Arbeitsplatz. Der Server wird zuerst gefragt; eine Calendar.mdb, die da ist, wird nie überschrieben.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a length of time within a day.</source>
        <translation>„%1“ ist keine Dauer innerhalb eines Tages.</translation>
    </message>
    <message>
        <source>Write it as 2h, 90m or 1h30.</source>
        <translation>Schreiben Sie sie als 2h, 90m oder 1h30.</translation>
    </message>
    <message>
        <source>Free times need both ends of a range.</source>
        <translation>Freie Zeiten brauchen beide Enden eines Zeitraums.</translation>
    </message>
    <message>
        <source>Name them with --from and --to.</source>
        <translation>Nennen Sie sie mit --from und --to.</translation>
    </message>
    <message>
        <source>the day; today when it is not given</source>
        <translation>der Tag; heute, wenn er nicht angegeben ist</translation>
    </message>
    <message>
        <source>the whole week of that day, from Sunday</source>
        <translation>die ganze Woche dieses Tages, ab Sonntag</translation>
    </message>
    <message>
        <source>the whole month of that day</source>
        <translation>der ganze Monat dieses Tages</translation>
    </message>
    <message>
        <source>the times that are free for so long: 2h, 90m, 1h30</source>
        <translation>die Zeiten, die so lange frei sind: 2h, 90m, 1h30</translation>
    </message>
    <message>
        <source>Print the bookings of a day, a week or a month, or the free times</source>
        <translation>Gibt die Buchungen eines Tages, einer Woche oder eines Monats aus, oder die freien Zeiten</translation>
    </message>
    <message>
        <source>The lines are those of the month window. Status 1 says that there is nothing to list. A name that is asked for without dates is looked for on all days.</source>
        <translation>Die Zeilen sind die des Monatsfensters. Status 1 sagt, dass es nichts aufzuführen gibt. Ein Name, nach dem ohne Datum gefragt wird, wird an allen Tagen gesucht.</translation>
    </message>
    <message>
        <source>Made %1 and %2 in %3, with %4 facilities, %5 bookings and %6 guests.</source>
        <translation>%1 und %2 wurden in %3 angelegt, mit %4 Anlagen, %5 Buchungen und %6 Gästen.</translation>
    </message>
    <message>
        <source>Made %1 and %2 in %3.</source>
        <translation>%1 und %2 wurden in %3 angelegt.</translation>
    </message>
    <message>
        <source>the data folder to be made</source>
        <translation>der Datenordner, der angelegt wird</translation>
    </message>
    <message>
        <source>make Access 2000 files; else they are SQLite files</source>
        <translation>Access-2000-Dateien anlegen; sonst sind es SQLite-Dateien</translation>
    </message>
    <message>
        <source>fill them: five facilities, forty guests, bookings over three months</source>
        <translation>sie füllen: fünf Anlagen, vierzig Gäste, Buchungen über drei Monate</translation>
    </message>
    <message>
        <source>make the calendar on a PostgreSQL server, and Calendar.mdb a link to it</source>
        <translation>den Kalender auf einem PostgreSQL-Server anlegen, und Calendar.mdb als Verweis darauf</translation>
    </message>
    <message>
        <source>Make a data folder with an empty Calendar.mdb and Veyra.mdb</source>
        <translation>Legt einen Datenordner mit leerer Calendar.mdb und Veyra.mdb an</translation>
    </message>
    <message>
        <source>Files that are there are never written over.</source>
        <translation>Dateien, die da sind, werden nie überschrieben.</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Aufruf</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>SUBCOMMAND</source>
        <translation>BEFEHL</translation>
    </message>
    <message>
        <source>Positionals</source>
        <translation>Angaben</translation>
    </message>
    <message>
        <source>REQUIRED</source>
        <translation>PFLICHT</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Braucht</translation>
    </message>
    <message>
        <source>Excludes</source>
        <translation>Nicht mit</translation>
    </message>
    <message>
        <source>Print this help message and exit</source>
        <translation>Gibt diese Hilfe aus und endet</translation>
    </message>
    <message>
        <source>Display program version information and exit</source>
        <translation>Gibt die Version des Programms aus und endet</translation>
    </message>
    <message>
        <source>Example: %1</source>
        <translation>Beispiel: %1</translation>
    </message>
    <message>
        <source>The following argument was not expected: %1</source>
        <translation>Das folgende Argument wurde nicht erwartet: %1</translation>
    </message>
    <message>
        <source>The following arguments were not expected: %1</source>
        <translation>Die folgenden Argumente wurden nicht erwartet: %1</translation>
    </message>
    <message>
        <source>%1 excludes %2</source>
        <translation>%1 geht nicht zusammen mit %2</translation>
    </message>
    <message>
        <source>%1 requires %2</source>
        <translation>%1 braucht %2</translation>
    </message>
    <message>
        <source>Could not convert: %1</source>
        <translation>Nicht verstanden: %1</translation>
    </message>
    <message>
        <source>%1 not in %2</source>
        <translation>%1 ist keines von %2</translation>
    </message>
    <message>
        <source>%1: it is empty</source>
        <translation>%1: ist leer</translation>
    </message>
    <message>
        <source>A subcommand is required</source>
        <translation>Ein Befehl ist nötig</translation>
    </message>
    <message>
        <source>%1 is required</source>
        <translation>%1 ist nötig</translation>
    </message>
    <message>
        <source>Subcommands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>%1 of %2 rows</source>
        <translation>%1 von %2 Zeilen</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 Zeile</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 Zeilen</translation>
    </message>
    <message>
        <source>The file</source>
        <translation>Die Datei</translation>
    </message>
    <message>
        <source>%1, page %2</source>
        <translation>%1, Seite %2</translation>
    </message>
    <message>
        <source>Made %1 of %2:</source>
        <translation>Aus %2 wurde %1 angelegt:</translation>
    </message>
    <message>
        <source>Everything could be read.</source>
        <translation>Alles konnte gelesen werden.</translation>
    </message>
    <message>
        <source>Not all could be read:</source>
        <translation>Nicht alles konnte gelesen werden:</translation>
    </message>
    <message>
        <source>the damaged database file, which is only read</source>
        <translation>die beschädigte Datenbankdatei; sie wird nur gelesen</translation>
    </message>
    <message>
        <source>where the new database is to be made</source>
        <translation>wo die neue Datenbank angelegt wird</translation>
    </message>
    <message>
        <source>Read what is left in a damaged file into a new one</source>
        <translation>Liest, was in einer beschädigten Datei übrig ist, in eine neue</translation>
    </message>
    <message>
        <source>Goes through the file page by page and puts every row that is whole into a new file of the same kind, Calendar.mdb, or Veyra.mdb when it holds the guests. What could not be read is listed by table and page; status 1 when there is any. Close the calendar first, and leave what lies beside the file. Files that are there are never written over.</source>
        <translation>Geht die Datei Seite für Seite durch und bringt jede unversehrte Zeile in eine neue Datei derselben Art, Calendar.mdb, oder Veyra.mdb, wenn sie die Gäste enthält. Was nicht gelesen werden konnte, wird nach Tabelle und Seite aufgeführt; Status 1, wenn es etwas gibt. Schließen Sie den Kalender zuerst, und lassen Sie, was neben der Datei liegt. Dateien, die da sind, werden nie überschrieben.</translation>
    </message>
    <message>
        <source>%1 is %2 now, checked.</source>
        <translation>%1 ist jetzt %2, geprüft.</translation>
    </message>
    <message>
        <source>The file it replaces is kept as %1.</source>
        <translation>Die ersetzte Datei ist als %1 aufgehoben.</translation>
    </message>
    <message>
        <source>the backup; it stays where it is</source>
        <translation>die Sicherungskopie; sie bleibt, wo sie ist</translation>
    </message>
    <message>
        <source>Put a backup in the place of the calendar</source>
        <translation>Bringt eine Sicherungskopie an die Stelle des Kalenders</translation>
    </message>
    <message>
        <source>The backup is checked first. Nobody may have the calendar open. The file that it replaces stays beside it as Calendar-before-DATE.mdb.</source>
        <translation>Die Sicherungskopie wird zuerst geprüft. Niemand darf den Kalender geöffnet haben. Die ersetzte Datei bleibt als Calendar-before-DATUM.mdb daneben.</translation>
    </message>
    <message>
        <source>%1 is shared already; nothing was changed.</source>
        <translation>%1 ist schon gemeinsam; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>%1 leads to the server now: %2 tables, %3 rows, all compared.</source>
        <translation>%1 führt jetzt zum Server: %2 Tabellen, %3 Zeilen, alle verglichen.</translation>
    </message>
    <message>
        <source>print what an administrator may run on the server, and do nothing</source>
        <translation>ausgeben, was ein Verwalter auf dem Server ausführen kann, und nichts tun</translation>
    </message>
    <message>
        <source>with --sql: the role of the desks, which may then read and write rows</source>
        <translation>mit --sql: die Rolle der Arbeitsplätze, die dann Zeilen lesen und schreiben darf</translation>
    </message>
    <message>
        <source>Put the calendar on a PostgreSQL server, for several desks</source>
        <translation>Bringt den Kalender auf einen PostgreSQL-Server, für mehrere Arbeitsplätze</translation>
    </message>
    <message>
        <source>All its tables, columns and rows are copied in one transaction, every row is compared, and a link takes the place of Calendar.mdb, which stays beside it as Calendar-before-DATE.mdb. Nobody may have the calendar open. Passwords do not belong into a link: put them into ~/.pgpass or a service file.</source>
        <translation>Alle Tabellen, Spalten und Zeilen werden in einer Transaktion kopiert, jede Zeile wird verglichen, und ein Verweis tritt an die Stelle von Calendar.mdb, die als Calendar-before-DATUM.mdb daneben bleibt. Niemand darf den Kalender geöffnet haben. Kennwörter gehören nicht in einen Verweis: Schreiben Sie sie in ~/.pgpass oder in eine Dienstdatei.</translation>
    </message>
    <message>
        <source>the database file; it may be in use</source>
        <translation>die Datenbankdatei; sie darf in Gebrauch sein</translation>
    </message>
    <message>
        <source>Print what a database file is, and its tables</source>
        <translation>Gibt aus, was eine Datenbankdatei ist, und ihre Tabellen</translation>
    </message>
    <message>
        <source>Its kind, version and code page; each table with its number of rows, its columns (type, size, whether it is an auto number, name) and its indexes (columns, whether each value stands once, name). Two blanks or more part them; &quot;-&quot; stands for nothing.</source>
        <translation>Ihre Art, Version und Codepage; jede Tabelle mit der Zahl ihrer Zeilen, ihren Spalten (Typ, Größe, ob sie sich selbst nummeriert, Name) und ihren Indizes (Spalten, ob jeder Wert nur einmal vorkommt, Name). Zwei Leerzeichen oder mehr trennen sie; „-“ steht für nichts. Die Ausgabe selbst ist in jeder Sprache englisch.</translation>
    </message>
    <message>
        <source>The file is larger than 50 MB, as no calendar is.</source>
        <translation>Die Datei ist größer als 50 MB, wie kein Kalender es ist.</translation>
    </message>
    <message>
        <source>Check that it is the right file, or export a shorter range of days.</source>
        <translation>Prüfen Sie, ob es die richtige Datei ist, oder exportieren Sie einen kürzeren Zeitraum.</translation>
    </message>
    <message>
        <source>It cannot be read: %1.</source>
        <translation>Sie kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>Check the name, and that you may read the file.</source>
        <translation>Prüfen Sie den Namen, und ob Sie die Datei lesen dürfen.</translation>
    </message>
    <message>
        <source>Choose another name, or say --replace to write over it.</source>
        <translation>Wählen Sie einen anderen Namen, oder geben Sie --replace an, um sie zu überschreiben.</translation>
    </message>
    <message>
        <source>It cannot be written: %1.</source>
        <translation>Sie kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>Nothing was made. Check that the disk has room.</source>
        <translation>Es wurde nichts angelegt. Prüfen Sie, ob auf dem Datenträger Platz ist.</translation>
    </message>
    <message>
        <source>The journal has no action %1.</source>
        <translation>Das Journal hat keine Handlung %1.</translation>
    </message>
    <message>
        <source>Nothing was changed. &quot;veyra-data history&quot; lists the numbers.</source>
        <translation>Es wurde nichts geändert. „veyra-data history“ führt die Nummern auf.</translation>
    </message>
    <message>
        <source>Action %1 cannot be taken back; nothing was changed.</source>
        <translation>Handlung %1 kann nicht zurückgenommen werden; es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Action %1 was taken back: 1 row.</source>
        <translation>Handlung %1 wurde zurückgenommen: 1 Zeile.</translation>
    </message>
    <message>
        <source>Action %1 was taken back: %2 rows.</source>
        <translation>Handlung %1 wurde zurückgenommen: %2 Zeilen.</translation>
    </message>
    <message>
        <source>Nothing is left of action %1 to be taken back.</source>
        <translation>Von Handlung %1 ist nichts übrig, was zurückzunehmen wäre.</translation>
    </message>
    <message>
        <source>Take this back?</source>
        <translation>Dies zurücknehmen?</translation>
    </message>
    <message>
        <source>%1: The journal holds nothing that could be taken back.</source>
        <translation>%1: Im Journal steht nichts, was zurückgenommen werden könnte.</translation>
    </message>
    <message>
        <source>Begin one with &quot;journal on&quot;.</source>
        <translation>Beginnen Sie eines mit „journal on“.</translation>
    </message>
    <message>
        <source>the action&apos;s, as &quot;history&quot; prints it</source>
        <translation>die der Handlung, wie „history“ sie ausgibt</translation>
    </message>
    <message>
        <source>do not ask</source>
        <translation>nicht fragen</translation>
    </message>
    <message>
        <source>Take back what was done to the calendar last</source>
        <translation>Nimmt zurück, was zuletzt am Kalender getan wurde</translation>
    </message>
    <message>
        <source>Prints it, asks, and takes it back whole or not at all: a series, the deletion of a facility with all its bookings, an import. That is an action itself, so a second undo takes back the first. The calendar may be open. What has been booked since is never overwritten: it is named, and nothing is changed.</source>
        <translation>Gibt es aus, fragt und nimmt es ganz oder gar nicht zurück: eine Serie, das Löschen einer Anlage mit allen ihren Buchungen, einen Import. Das ist selbst eine Handlung, ein zweites undo nimmt also das erste zurück. Der Kalender darf geöffnet sein. Was seither gebucht wurde, wird nie überschrieben: Es wird genannt, und nichts wird geändert.</translation>
    </message>
    <message>
        <source>Take back an earlier action, by its number in the history</source>
        <translation>Nimmt eine frühere Handlung zurück, nach ihrer Nummer in history</translation>
    </message>
    <message>
        <source>As undo does. What was deleted comes back where its time is still free.</source>
        <translation>Wie undo. Was gelöscht wurde, kommt zurück, wo seine Zeit noch frei ist.</translation>
    </message>
    <message>
        <source>%1 holds &quot;%2&quot;, which is not a whole number.</source>
        <translation>In %1 steht „%2“, und das ist keine ganze Zahl.</translation>
    </message>
    <message>
        <source>%1 holds &quot;%2&quot;, which is not a number.</source>
        <translation>In %1 steht „%2“, und das ist keine Zahl.</translation>
    </message>
    <message>
        <source>%1 holds &quot;%2&quot;, which is not a date.</source>
        <translation>In %1 steht „%2“, und das ist kein Datum.</translation>
    </message>
    <message>
        <source>%1 holds &quot;%2&quot;, which is not a text.</source>
        <translation>In %1 steht „%2“, und das ist kein Text.</translation>
    </message>
    <message>
        <source>%1 holds &quot;%2&quot;, which is not a value.</source>
        <translation>In %1 steht „%2“, und das ist kein Wert.</translation>
    </message>
    <message>
        <source>Row %1 of the table %2 cannot be converted. %3</source>
        <translation>Zeile %1 der Tabelle %2 kann nicht umgewandelt werden. %3</translation>
    </message>
    <message>
        <source>Nothing was changed. Correct the row, and convert again.</source>
        <translation>Es wurde nichts geändert. Berichtigen Sie die Zeile, und wandeln Sie noch einmal um.</translation>
    </message>
    <message>
        <source>Nothing was changed. %1</source>
        <translation>Es wurde nichts geändert. %1</translation>
    </message>
    <message>
        <source>The new file cannot hold it together with the rows before it.</source>
        <translation>Die neue Datei kann sie nicht zusammen mit den Zeilen davor fassen.</translation>
    </message>
    <message>
        <source>The table %1 cannot be converted. %2</source>
        <translation>Die Tabelle %1 kann nicht umgewandelt werden. %2</translation>
    </message>
    <message>
        <source>%1 is &quot;%2&quot; and would become &quot;%3&quot;.</source>
        <translation>%1 ist „%2“ und würde zu „%3“.</translation>
    </message>
    <message>
        <source>It is missing in the new file.</source>
        <translation>Sie fehlt in der neuen Datei.</translation>
    </message>
    <message>
        <source>The new file has more rows after it.</source>
        <translation>Die neue Datei hat nach ihr noch mehr Zeilen.</translation>
    </message>
    <message>
        <source>The column %1 of the table %2 holds pictures or other objects, which cannot be converted.</source>
        <translation>Die Spalte %1 der Tabelle %2 enthält Bilder oder andere Objekte, die nicht umgewandelt werden können.</translation>
    </message>
    <message>
        <source>Nothing was changed. Delete the column in Access, and try again.</source>
        <translation>Es wurde nichts geändert. Löschen Sie die Spalte in Access, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>In %1: %2</source>
        <translation>In %1: %2</translation>
    </message>
    <message>
        <source>Nothing was changed. Correct the file.</source>
        <translation>Es wurde nichts geändert. Berichtigen Sie die Datei.</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>there is no column %1. The first line must name Date, From, To and Name.</source>
        <translation>Es gibt keine Spalte %1. Die erste Zeile muss Date, From, To und Name nennen.</translation>
    </message>
    <message>
        <source>a cell is missing.</source>
        <translation>Eine Zelle fehlt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time such as 9:30 or 9:30 AM.</source>
        <translation>„%1“ ist keine Uhrzeit wie 9:30 oder 9:30 AM.</translation>
    </message>
    <message>
        <source>it begins at the end of the day.</source>
        <translation>Sie beginnt am Ende des Tages.</translation>
    </message>
    <message>
        <source>it ends after the last day that there is.</source>
        <translation>Sie endet nach dem letzten Tag, den es gibt.</translation>
    </message>
    <message>
        <source>Nothing was changed. Export the file again, and try again.</source>
        <translation>Es wurde nichts geändert. Exportieren Sie die Datei noch einmal, und versuchen Sie es wieder.</translation>
    </message>
    <message>
        <source>The file is not text in UTF-8.</source>
        <translation>Die Datei ist kein Text in UTF-8.</translation>
    </message>
    <message>
        <source>The file was cut short: a part of it has no end.</source>
        <translation>Die Datei wurde abgeschnitten: Ein Teil davon hat kein Ende.</translation>
    </message>
    <message>
        <source>A date of the file lies outside the years 100 to 9999.</source>
        <translation>Ein Datum der Datei liegt außerhalb der Jahre 100 bis 9999.</translation>
    </message>
    <message>
        <source>event %1</source>
        <translation>Ereignis %1</translation>
    </message>
    <message>
        <source>The file has too many bookings.</source>
        <translation>Die Datei hat zu viele Buchungen.</translation>
    </message>
    <message>
        <source>The file is not an iCalendar file, or it was cut short.</source>
        <translation>Die Datei ist keine iCalendar-Datei, oder sie wurde abgeschnitten.</translation>
    </message>
    <message>
        <source>There is no facility %1.</source>
        <translation>Es gibt keine Anlage %1.</translation>
    </message>
    <message>
        <source>Add it in the calendar first, or say with --facility where all go.</source>
        <translation>Fügen Sie sie zuerst im Kalender hinzu, oder geben Sie mit --facility an, wohin alle kommen.</translation>
    </message>
    <message>
        <source>%1 (%2) clashes with %3.</source>
        <translation>%1 (%2) überschneidet sich mit %3.</translation>
    </message>
    <message>
        <source>%1: the name was cut to &quot;%2&quot;.</source>
        <translation>%1: Der Name wurde auf „%2“ gekürzt.</translation>
    </message>
    <message>
        <source>This part of the program cannot be loaded.</source>
        <translation>Dieser Teil des Programms kann nicht geladen werden.</translation>
    </message>
    <message>
        <source>Install the program again. CSV files can be exchanged without it.</source>
        <translation>Installieren Sie das Programm noch einmal. CSV-Dateien können auch ohne ihn ausgetauscht werden.</translation>
    </message>
    <message>
        <source>%1: %2 on %3 was rounded outwards to whole half hours.</source>
        <translation>%1: %2 am %3 wurde nach außen auf ganze halbe Stunden gerundet.</translation>
    </message>
    <message>
        <source>%1: %2 on %3 runs over midnight and was split.</source>
        <translation>%1: %2 am %3 geht über Mitternacht und wurde geteilt.</translation>
    </message>
    <message>
        <source>Nothing was changed. Check that the disk has room and that you may make files in the folder.</source>
        <translation>Es wurde nichts geändert. Prüfen Sie, ob auf dem Datenträger Platz ist und ob Sie in dem Ordner Dateien anlegen dürfen.</translation>
    </message>
    <message>
        <source>The new file could not be put there: %1.</source>
        <translation>Die neue Datei konnte nicht dorthin gebracht werden: %1.</translation>
    </message>
    <message>
        <source>It could not be saved to the disk: %1.</source>
        <translation>Es konnte nicht auf dem Datenträger gespeichert werden: %1.</translation>
    </message>
    <message>
        <source>Nothing was changed. Check that the disk has room.</source>
        <translation>Es wurde nichts geändert. Prüfen Sie, ob auf dem Datenträger Platz ist.</translation>
    </message>
    <message>
        <source>By another program</source>
        <translation>Durch ein anderes Programm</translation>
    </message>
    <message>
        <source>... and %1 more</source>
        <translation>... und %1 weitere</translation>
    </message>
    <message>
        <source>Copied %1 of %2 rows</source>
        <translation>%1 von %2 Zeilen kopiert</translation>
    </message>
    <message>
        <source>Compared %1 of %2 rows</source>
        <translation>%1 von %2 Zeilen verglichen</translation>
    </message>
    <message>
        <source>Checked %1 of %2 rows</source>
        <translation>%1 von %2 Zeilen geprüft</translation>
    </message>
    <message>
        <source>Read %1 of %2 rows</source>
        <translation>%1 von %2 Zeilen gelesen</translation>
    </message>
    <message>
        <source>Nothing was changed. Please report this.</source>
        <translation>Es wurde nichts geändert. Bitte melden Sie dies.</translation>
    </message>
    <message>
        <source>The new file could not be completed.</source>
        <translation>Die neue Datei konnte nicht fertiggestellt werden.</translation>
    </message>
    <message>
        <source>Nothing was made. Move the file that is there away, or choose another folder.</source>
        <translation>Es wurde nichts angelegt. Räumen Sie die Datei weg, die da ist, oder wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Nothing can be made in this folder: %1.</source>
        <translation>In diesem Ordner kann nichts angelegt werden: %1.</translation>
    </message>
    <message>
        <source>Choose a folder that you may write to.</source>
        <translation>Wählen Sie einen Ordner, in den Sie schreiben dürfen.</translation>
    </message>
    <message>
        <source>The new folder cannot be opened to others: %1.</source>
        <translation>Der neue Ordner kann anderen nicht zugänglich gemacht werden: %1.</translation>
    </message>
    <message>
        <source>Nothing was made. Choose another folder.</source>
        <translation>Es wurde nichts angelegt. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>It could not be removed: %1.</source>
        <translation>Es konnte nicht entfernt werden: %1.</translation>
    </message>
    <message>
        <source>Nothing was made. Check that the disk works, and try again.</source>
        <translation>Es wurde nichts angelegt. Prüfen Sie, ob der Datenträger funktioniert, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Nothing was changed. Close the calendar at every desk, and try again.</source>
        <translation>Es wurde nichts geändert. Schließen Sie den Kalender an jedem Arbeitsplatz, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Somebody used the calendar meanwhile.</source>
        <translation>Jemand hat den Kalender inzwischen benutzt.</translation>
    </message>
    <message>
        <source>VeyraCalendar.chm</source>
        <translation>VeyraCalendar_de.chm</translation>
    </message>
    <message>
        <source>%1 %2, %3</source>
        <translation>%2. %1 %3</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1 %2 to %3</source>
        <translation>%2. %1 bis %3</translation>
    </message>
    <message>
        <source>%1 %2 to %3, %4</source>
        <translation>%2. bis %3. %1 %4</translation>
    </message>
    <message>
        <source>%1, %2 %3</source>
        <translation>%1, %3. %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1, %2.</translation>
    </message>
    <message>
        <source>+%1 more, page %2</source>
        <translation>+%1 weitere, Seite %2</translation>
    </message>
    <message>
        <source>%1, continued</source>
        <translation>%1, Fortsetzung</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>The help file cannot be read.</source>
        <translation>Die Hilfedatei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Install Veyra Calendar again to get a good one.</source>
        <translation>Installieren Sie Veyra Calendar noch einmal, um eine gute zu bekommen.</translation>
    </message>
    <message>
        <source>This page is not in the help file: %1</source>
        <translation>Diese Seite ist nicht in der Hilfedatei: %1</translation>
    </message>
    <message>
        <source>Help page</source>
        <translation>Hilfeseite</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>Search the help</source>
        <translation>Hilfe durchsuchen</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>Suchergebnisse</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>No page has these words.</source>
        <translation>Keine Seite enthält diese Wörter.</translation>
    </message>
    <message>
        <source>January</source>
        <translation>Januar</translation>
    </message>
    <message>
        <source>February</source>
        <translation>Februar</translation>
    </message>
    <message>
        <source>March</source>
        <translation>März</translation>
    </message>
    <message>
        <source>April</source>
        <translation>April</translation>
    </message>
    <message>
        <source>May</source>
        <translation>Mai</translation>
    </message>
    <message>
        <source>June</source>
        <translation>Juni</translation>
    </message>
    <message>
        <source>July</source>
        <translation>Juli</translation>
    </message>
    <message>
        <source>August</source>
        <translation>August</translation>
    </message>
    <message>
        <source>September</source>
        <translation>September</translation>
    </message>
    <message>
        <source>October</source>
        <translation>Oktober</translation>
    </message>
    <message>
        <source>November</source>
        <translation>November</translation>
    </message>
    <message>
        <source>December</source>
        <translation>Dezember</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 Std.</translation>
    </message>
    <message>
        <source>30 min</source>
        <translation>30 Min.</translation>
    </message>
    <message>
        <source>%1 h 30 min</source>
        <translation>%1 Std. 30 Min.</translation>
    </message>
    <message>
        <source>the map of free pages</source>
        <translation>dem Verzeichnis der freien Seiten</translation>
    </message>
    <message>
        <source>Page %1 counts as free and belongs to %2.</source>
        <translation>Seite %1 gilt als frei und gehört zu %2.</translation>
    </message>
    <message>
        <source>Page %1 says that it belongs to the table %2, which does not know of it.</source>
        <translation>Seite %1 gibt an, zur Tabelle %2 zu gehören, die nichts von ihr weiß.</translation>
    </message>
    <message>
        <source>the header</source>
        <translation>dem Kopf der Datei</translation>
    </message>
    <message>
        <source>index %1 of the table %2</source>
        <translation>dem Index %1 der Tabelle %2</translation>
    </message>
    <message>
        <source>Page %1 of %2 names another table as its own.</source>
        <translation>Seite %1, die zu %2 gehört, nennt eine andere Tabelle als die ihre.</translation>
    </message>
    <message>
        <source>a page above its leaves does not name the last entry of page %1</source>
        <translation>eine Seite über seinen Blättern nennt nicht den letzten Eintrag von Seite %1</translation>
    </message>
    <message>
        <source>its last leaf names another one after it</source>
        <translation>sein letztes Blatt nennt noch eines nach sich</translation>
    </message>
    <message>
        <source>its entries are out of order</source>
        <translation>seine Einträge stehen nicht in der richtigen Reihenfolge</translation>
    </message>
    <message>
        <source>Index %1 of the table %2 is wrong: %3.</source>
        <translation>Der Index %1 der Tabelle %2 stimmt nicht: %3.</translation>
    </message>
    <message>
        <source>Index %1 of the table %2 is wrong: %3</source>
        <translation>Der Index %1 der Tabelle %2 stimmt nicht: %3</translation>
    </message>
    <message>
        <source>its leaf pages are not linked to each other at page %1</source>
        <translation>seine Blätter sind bei Seite %1 nicht miteinander verbunden</translation>
    </message>
    <message>
        <source>it has %1 entries for %2 rows</source>
        <translation>er hat nicht so viele Einträge (%1) wie die Tabelle Zeilen (%2)</translation>
    </message>
    <message>
        <source>%1 rows are missing in it, and %2 entries are of no row</source>
        <translation>Zeilen, die in ihm fehlen: %1, Einträge, zu denen keine Zeile gehört: %2</translation>
    </message>
    <message>
        <source>its pages run in a circle</source>
        <translation>seine Seiten führen im Kreis</translation>
    </message>
    <message>
        <source>the table %1</source>
        <translation>der Tabelle %1</translation>
    </message>
    <message>
        <source>the definition of %1</source>
        <translation>der Beschreibung %1</translation>
    </message>
    <message>
        <source>The table %1 cannot be gone through: %2</source>
        <translation>Die Tabelle %1 kann nicht durchgesehen werden: %2</translation>
    </message>
    <message>
        <source>a usage map of %1</source>
        <translation>einer Seitenliste %1</translation>
    </message>
    <message>
        <source>The table %1 has page %2, which is not one of its own.</source>
        <translation>Die Tabelle %1 hat die Seite %2, die nicht zu ihr gehört.</translation>
    </message>
    <message>
        <source>The table %1 has a map of pages with room in which there are pages of others.</source>
        <translation>Die Tabelle %1 hat ein Verzeichnis der Seiten mit freiem Platz, in dem Seiten anderer stehen.</translation>
    </message>
    <message>
        <source>The table %1 has a row on page %2 whose column %3 cannot be read.</source>
        <translation>Die Tabelle %1 hat auf Seite %2 eine Zeile, deren Spalte %3 nicht gelesen werden kann.</translation>
    </message>
    <message>
        <source>the usage maps</source>
        <translation>den Seitenlisten</translation>
    </message>
    <message>
        <source>Page %1 of %2 is not in the file.</source>
        <translation>Seite %1, die zu %2 gehört, ist nicht in der Datei.</translation>
    </message>
    <message>
        <source>Page %1 belongs to %2 and to %3.</source>
        <translation>Seite %1 gehört zu %2 und zu %3.</translation>
    </message>
    <message>
        <source>The table %1 has a row with a higher number than the server has given.</source>
        <translation>Die Tabelle %1 hat eine Zeile mit einer höheren Nummer, als der Server vergeben hat.</translation>
    </message>
    <message>
        <source>The table %1 cannot be read: %2.</source>
        <translation>Die Tabelle %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>too little memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>the server did not answer</source>
        <translation>der Server hat nicht geantwortet</translation>
    </message>
    <message>
        <source>Nothing was changed. Save the file as CSV, in UTF-8, and try again.</source>
        <translation>Es wurde nichts geändert. Speichern Sie die Datei als CSV, in UTF-8, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Line %1: something stands behind the end of a quoted cell.</source>
        <translation>Zeile %1: Hinter dem Ende einer Zelle in Anführungszeichen steht noch etwas.</translation>
    </message>
    <message>
        <source>Line %1: a quoted cell has no end.</source>
        <translation>Zeile %1: Eine Zelle in Anführungszeichen hat kein Ende.</translation>
    </message>
    <message>
        <source>Nothing was changed. Correct the file, or leave the event out.</source>
        <translation>Es wurde nichts geändert. Berichtigen Sie die Datei, oder lassen Sie das Ereignis aus.</translation>
    </message>
    <message>
        <source>The event &quot;%1&quot; ends before it begins, or at a time that cannot be read.</source>
        <translation>Das Ereignis „%1“ endet, bevor es beginnt, oder zu einer Zeit, die nicht lesbar ist.</translation>
    </message>
    <message>
        <source>The event &quot;%1&quot; lasts for more than a year.</source>
        <translation>Das Ereignis „%1“ dauert länger als ein Jahr.</translation>
    </message>
    <message>
        <source>The event &quot;%1&quot; repeats without end. Name the last day that you want with --to.</source>
        <translation>Das Ereignis „%1“ wiederholt sich ohne Ende. Nennen Sie mit --to den letzten Tag, den Sie wollen.</translation>
    </message>
    <message>
        <source>The event &quot;%1&quot; repeats by a rule that cannot be read.</source>
        <translation>Das Ereignis „%1“ wiederholt sich nach einer Regel, die nicht lesbar ist.</translation>
    </message>
    <message>
        <source>The event &quot;%1&quot; repeats more often than any booking does.</source>
        <translation>Das Ereignis „%1“ wiederholt sich öfter, als es irgendeine Buchung tut.</translation>
    </message>
    <message>
        <source>The event &quot;%1&quot; has no date that can be read.</source>
        <translation>Das Ereignis „%1“ hat kein lesbares Datum.</translation>
    </message>
    <message>
        <source>New booking</source>
        <translation>Neue Buchung</translation>
    </message>
    <message>
        <source>New series</source>
        <translation>Neue Serie</translation>
    </message>
    <message>
        <source>New facility</source>
        <translation>Neue Anlage</translation>
    </message>
    <message>
        <source>Booking deleted</source>
        <translation>Buchung gelöscht</translation>
    </message>
    <message>
        <source>Series deleted</source>
        <translation>Serie gelöscht</translation>
    </message>
    <message>
        <source>Facility deleted</source>
        <translation>Anlage gelöscht</translation>
    </message>
    <message>
        <source>Booking renamed</source>
        <translation>Buchung umbenannt</translation>
    </message>
    <message>
        <source>Series renamed</source>
        <translation>Serie umbenannt</translation>
    </message>
    <message>
        <source>Facility picked</source>
        <translation>Anlage gewählt</translation>
    </message>
    <message>
        <source>Colors saved</source>
        <translation>Farben gespeichert</translation>
    </message>
    <message>
        <source>Undo of %1</source>
        <translation>Rücknahme von %1</translation>
    </message>
    <message>
        <source>Import of %1</source>
        <translation>Import aus %1</translation>
    </message>
    <message>
        <source>%1: At Most %2 required but received %3</source>
        <translation>%1 kann nur %2-mal angegeben werden, nicht %3-mal</translation>
    </message>
    <message>
        <source>%1: %2 required %3 missing</source>
        <translation>%1: %2 Angabe fehlt (%3)</translation>
    </message>
    <message>
        <source>%1: Check %2 value in %3 OR %4 FAILED</source>
        <translation>%1: %2 ist keines von %3 oder %4</translation>
    </message>
</context>
<context>
    <name>veyra::Phrase</name>
    <message>
        <source>The output could not be written. Check that the disk has room.</source>
        <translation>Die Ausgabe konnte nicht geschrieben werden. Prüfen Sie, ob auf dem Datenträger Platz ist.</translation>
    </message>
</context>
</TS>
