<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Given texts</name>
    <message id="103">
        <source>Visit Orrindale in the world wide web ...</source>
        <translation>Besuchen Sie Orrindale im World Wide Web ...</translation>
    </message>
    <message id="105">
        <source>Systeminformations not available on this system at the moment!</source>
        <translation>Die Systeminformationen sind auf diesem System zurzeit nicht verfügbar!</translation>
    </message>
    <message id="107">
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message id="109">
        <source>If not used the right way, Kalvenor Pro can do harm to your computer system or cause data loss. Orrindale is not responsible for loss of data or caused damaged on your computer system. You use this software on your own risk. More you find in the license terms and conditions chapter in the manual. To use this program you MUST accept this notice and the license terms and conditions.</source>
        <translation>Bei unsachgemäßer Verwendung kann Kalvenor Pro Ihr Computersystem schädigen oder zu Datenverlust führen. Orrindale haftet nicht für Datenverlust oder für Schäden an Ihrem Computersystem. Sie verwenden diese Software auf eigene Gefahr. Näheres finden Sie im Handbuch im Kapitel über die Lizenzbedingungen. Um dieses Programm zu verwenden, MÜSSEN Sie diesen Hinweis und die Lizenzbedingungen annehmen.</translation>
    </message>
    <message id="110">
        <source>ATTENTION:</source>
        <translation>ACHTUNG:</translation>
    </message>
    <message id="111">
        <source>Accept</source>
        <translation>Annehmen</translation>
    </message>
    <message id="112">
        <source>Decline</source>
        <translation>Ablehnen</translation>
    </message>
    <message id="117">
        <source>General options</source>
        <translation>Allgemeine Optionen</translation>
    </message>
    <message id="118">
        <source>General settings</source>
        <translation>Allgemeine Einstellungen</translation>
    </message>
    <message id="119">
        <source>Start Kalvenor mimimized with Windows startup</source>
        <translation>Kalvenor beim Start von Windows minimiert starten</translation>
    </message>
    <message id="120">
        <source>After minimizing show in tray notification area</source>
        <translation>Nach dem Minimieren im Infobereich der Taskleiste anzeigen</translation>
    </message>
    <message id="121">
        <source>Shutdown computer when finished last action</source>
        <translation>Computer nach der letzten Aktion herunterfahren</translation>
    </message>
    <message id="122">
        <source>After start immediately start monitoring</source>
        <translation>Nach dem Start sofort mit der Überwachung beginnen</translation>
    </message>
    <message id="123">
        <source>Refresh logfile view every 10 seconds</source>
        <translation>Anzeige der Protokolldatei alle 10 Sekunden aktualisieren</translation>
    </message>
    <message id="124">
        <source>Logfile for Kalvenor</source>
        <translation>Protokolldatei für Kalvenor</translation>
    </message>
    <message id="125">
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message id="126">
        <source>C&amp;ancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message id="127">
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message id="128">
        <source>Select file</source>
        <translation>Datei auswählen</translation>
    </message>
    <message id="129">
        <source>Please select logging file</source>
        <translation>Bitte wählen Sie die Protokolldatei aus</translation>
    </message>
    <message id="130">
        <source>Log file</source>
        <translation>Protokolldatei</translation>
    </message>
    <message id="131">
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message id="132">
        <source>The selected directory &apos;</source>
        <translation>Das ausgewählte Verzeichnis &apos;</translation>
    </message>
    <message id="133">
        <source>&apos; doesn&apos;t exist.</source>
        <translation>&apos; existiert nicht.</translation>
    </message>
    <message id="134">
        <source>Please select a valid directory.</source>
        <translation>Bitte wählen Sie ein gültiges Verzeichnis aus.</translation>
    </message>
    <message id="135">
        <source>Directory not found</source>
        <translation>Verzeichnis nicht gefunden</translation>
    </message>
    <message id="136">
        <source>The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!</source>
        <translation>Die Hilfe innerhalb von Kalvenor funktioniert nur, wenn der Internet Explorer 5.x oder höher installiert ist!</translation>
    </message>
    <message id="137">
        <source>Please use the help file located in the Kalvenor startmenu entry.</source>
        <translation>Bitte verwenden Sie die Hilfedatei im Startmenü-Eintrag von Kalvenor.</translation>
    </message>
    <message id="138">
        <source>Help can not be opened</source>
        <translation>Die Hilfe kann nicht geöffnet werden</translation>
    </message>
    <message id="139">
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message id="140">
        <source>Import action file</source>
        <translation>Aktionsdatei importieren</translation>
    </message>
    <message id="141">
        <source>Export action file</source>
        <translation>Aktionsdatei exportieren</translation>
    </message>
    <message id="142">
        <source>Start monitoring</source>
        <translation>Überwachung starten</translation>
    </message>
    <message id="143">
        <source>Delete all activities</source>
        <translation>Alle Aktivitäten löschen</translation>
    </message>
    <message id="144">
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="145">
        <source>Synchronize system clock</source>
        <translation>Systemuhr synchronisieren</translation>
    </message>
    <message id="146">
        <source>Show Kalvenor logfile</source>
        <translation>Kalvenor-Protokolldatei anzeigen</translation>
    </message>
    <message id="147">
        <source>Delete Kalvenor logfile</source>
        <translation>Kalvenor-Protokolldatei löschen</translation>
    </message>
    <message id="148">
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message id="150">
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message id="151">
        <source>Add activity</source>
        <translation>Aktivität hinzufügen</translation>
    </message>
    <message id="152">
        <source>Delete activity</source>
        <translation>Aktivität löschen</translation>
    </message>
    <message id="153">
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
    <message id="154">
        <source>Deselect all</source>
        <translation>Auswahl aufheben</translation>
    </message>
    <message id="155">
        <source>Show logfile</source>
        <translation>Protokolldatei anzeigen</translation>
    </message>
    <message id="156">
        <source>Delete logfile</source>
        <translation>Protokolldatei löschen</translation>
    </message>
    <message id="157">
        <source>Start activity immediately</source>
        <translation>Aktivität sofort starten</translation>
    </message>
    <message id="158">
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message id="159">
        <source>The monitoring is still activ. Exit anyway?</source>
        <translation>Die Überwachung ist noch aktiv. Trotzdem beenden?</translation>
    </message>
    <message id="160">
        <source>Exit program</source>
        <translation>Programm beenden</translation>
    </message>
    <message id="162">
        <source>Select file to export</source>
        <translation>Datei für den Export auswählen</translation>
    </message>
    <message id="163">
        <source>Kalvenor action file</source>
        <translation>Kalvenor-Aktionsdatei</translation>
    </message>
    <message id="164">
        <source>Exporting &apos;</source>
        <translation>Exportieren von &apos;</translation>
    </message>
    <message id="165">
        <source>While exporting another action file you will lose all current activities.</source>
        <translation>Beim Exportieren in eine andere Aktionsdatei gehen alle aktuellen Aktivitäten verloren.</translation>
    </message>
    <message id="166">
        <source>Do you really want to proceed?</source>
        <translation>Möchten Sie wirklich fortfahren?</translation>
    </message>
    <message id="167">
        <source>Import action file</source>
        <translation>Aktionsdatei importieren</translation>
    </message>
    <message id="168">
        <source>Select file to import</source>
        <translation>Datei für den Import auswählen</translation>
    </message>
    <message id="169">
        <source>Importing &apos;</source>
        <translation>Importieren von &apos;</translation>
    </message>
    <message id="172">
        <source>Running instance of Kalvenor Pro found!</source>
        <translation>Kalvenor Pro läuft bereits!</translation>
    </message>
    <message id="173">
        <source>It&apos;s not possible to run multiple instances of Kalvenor Pro at the same time.</source>
        <translation>Kalvenor Pro kann nicht mehrmals gleichzeitig ausgeführt werden.</translation>
    </message>
    <message id="174">
        <source>File &apos;</source>
        <translation>Die Datei &apos;</translation>
    </message>
    <message id="175">
        <source>&apos; could not be started with Kalvenor.</source>
        <translation>&apos; konnte mit Kalvenor nicht gestartet werden.</translation>
    </message>
    <message id="176">
        <source>Invalid file</source>
        <translation>Ungültige Datei</translation>
    </message>
    <message id="179">
        <source>Name of activity</source>
        <translation>Name der Aktivität</translation>
    </message>
    <message id="180">
        <source>Source directory</source>
        <translation>Quellverzeichnis</translation>
    </message>
    <message id="181">
        <source>Destination directory</source>
        <translation>Zielverzeichnis</translation>
    </message>
    <message id="182">
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message id="183">
        <source>Initializing, please wait ...</source>
        <translation>Initialisierung, bitte warten ...</translation>
    </message>
    <message id="195">
        <source>Should the activity started at once?</source>
        <translation>Soll die Aktivität jetzt sofort gestartet werden?</translation>
    </message>
    <message id="196">
        <source>Start activity</source>
        <translation>Aktivität starten</translation>
    </message>
    <message id="197">
        <source>Monitoring in process ...</source>
        <translation>Überwachung wird ausgeführt ...</translation>
    </message>
    <message id="198">
        <source>idle</source>
        <translation>bereit</translation>
    </message>
    <message id="199">
        <source>For this feature you must be connected directly to the internet.</source>
        <translation>Für diese Funktion müssen Sie direkt mit dem Internet verbunden sein.</translation>
    </message>
    <message id="200">
        <source>Please establish an connection an try again.</source>
        <translation>Bitte stellen Sie eine Verbindung her und versuchen Sie es erneut.</translation>
    </message>
    <message id="201">
        <source>Can&apos;t find an active DFUE connection</source>
        <translation>Keine aktive DFÜ-Verbindung gefunden</translation>
    </message>
    <message id="202">
        <source>Really delete the Kalvenor logfile?</source>
        <translation>Soll die Kalvenor-Protokolldatei wirklich gelöscht werden?</translation>
    </message>
    <message id="203">
        <source>Delete Kalvenor logfile</source>
        <translation>Kalvenor-Protokolldatei löschen</translation>
    </message>
    <message id="204">
        <source>Should the logfile &apos;</source>
        <translation>Soll die Protokolldatei &apos;</translation>
    </message>
    <message id="205">
        <source>&apos; really be deleted?</source>
        <translation>&apos; wirklich gelöscht werden?</translation>
    </message>
    <message id="206">
        <source>Delete activity logfile</source>
        <translation>Protokolldatei der Aktivität löschen</translation>
    </message>
    <message id="207">
        <source>There is no logfile for this activity that can be deleted.</source>
        <translation>Zu dieser Aktivität gibt es keine Protokolldatei, die gelöscht werden kann.</translation>
    </message>
    <message id="208">
        <source>No logfile found</source>
        <translation>Keine Protokolldatei gefunden</translation>
    </message>
    <message id="209">
        <source>No logfile found for Kalvenor Pro.</source>
        <translation>Für Kalvenor Pro wurde keine Protokolldatei gefunden.</translation>
    </message>
    <message id="210">
        <source>No logfile found for this activity.</source>
        <translation>Für diese Aktivität wurde keine Protokolldatei gefunden.</translation>
    </message>
    <message id="211">
        <source>Should the activity &apos;</source>
        <translation>Soll die Aktivität &apos;</translation>
    </message>
    <message id="212">
        <source>Delete activity</source>
        <translation>Aktivität löschen</translation>
    </message>
    <message id="215">
        <source>You must add at least one activity to start monitoring.</source>
        <translation>Sie müssen mindestens eine Aktivität hinzufügen, um die Überwachung zu starten.</translation>
    </message>
    <message id="216">
        <source>Start monitoring</source>
        <translation>Überwachung starten</translation>
    </message>
    <message id="217">
        <source>You have not selected a directory to monitor. You can&apos;t start monitoring without a valid directory.</source>
        <translation>Sie haben kein Verzeichnis zur Überwachung ausgewählt. Ohne gültiges Verzeichnis kann die Überwachung nicht gestartet werden.</translation>
    </message>
    <message id="218">
        <source>Monitoring in progress for this activities: &apos;</source>
        <translation>Die Überwachung läuft für diese Aktivitäten: &apos;</translation>
    </message>
    <message id="219">
        <source>Stop monitoring</source>
        <translation>Überwachung beenden</translation>
    </message>
    <message id="220">
        <source>Start monitoring ...</source>
        <translation>Überwachung wird gestartet ...</translation>
    </message>
    <message id="221">
        <source>Monitoring finished! </source>
        <translation>Überwachung beendet! </translation>
    </message>
    <message id="222">
        <source>Activ ...</source>
        <translation>Aktiv ...</translation>
    </message>
    <message id="223">
        <source>Computer after last activity &apos;</source>
        <translation>Computer nach der letzten Aktivität &apos;</translation>
    </message>
    <message id="224">
        <source>&apos; shutted down.</source>
        <translation>&apos; heruntergefahren.</translation>
    </message>
    <message id="225">
        <source>All activities idle, finished monitoring.</source>
        <translation>Alle Aktivitäten sind bereit, Überwachung beendet.</translation>
    </message>
    <message id="226">
        <source>Monitoring &apos;</source>
        <translation>Überwachung &apos;</translation>
    </message>
    <message id="227">
        <source>stopped.</source>
        <translation>beendet.</translation>
    </message>
    <message id="228">
        <source>Stopped activity after once-only execution interval.</source>
        <translation>Aktivität nach einmaligem Ausführungsintervall beendet.</translation>
    </message>
    <message id="229">
        <source>Change detected - File/directory:</source>
        <translation>Änderung erkannt - Datei/Verzeichnis:</translation>
    </message>
    <message id="230">
        <source>New/changed file/directory &apos;</source>
        <translation>Neue/geänderte Datei bzw. neues/geändertes Verzeichnis &apos;</translation>
    </message>
    <message id="231">
        <source>&apos; found.</source>
        <translation>&apos; gefunden.</translation>
    </message>
    <message id="232">
        <source>Change detected</source>
        <translation>Änderung erkannt</translation>
    </message>
    <message id="233">
        <source>Executing file: &apos;</source>
        <translation>Datei wird ausgeführt: &apos;</translation>
    </message>
    <message id="234">
        <source>File &apos;</source>
        <translation>Datei &apos;</translation>
    </message>
    <message id="235">
        <source>&apos; could not executed ...</source>
        <translation>&apos; konnte nicht ausgeführt werden ...</translation>
    </message>
    <message id="236">
        <source>Checking starts ...</source>
        <translation>Prüfung beginnt ...</translation>
    </message>
    <message id="237">
        <source>Directory &apos;</source>
        <translation>Verzeichnis &apos;</translation>
    </message>
    <message id="238">
        <source>&apos; not found, monitoring stopped automatically.</source>
        <translation>&apos; nicht gefunden, Überwachung automatisch beendet.</translation>
    </message>
    <message id="239">
        <source>&apos; not found, monitoring &apos;</source>
        <translation>&apos; nicht gefunden, Überwachung &apos;</translation>
    </message>
    <message id="240">
        <source>&apos; automatically stopped.</source>
        <translation>&apos; automatisch beendet.</translation>
    </message>
    <message id="241">
        <source>E-Mail send to &apos;</source>
        <translation>E-Mail gesendet an &apos;</translation>
    </message>
    <message id="242">
        <source>Checking finished.</source>
        <translation>Prüfung beendet.</translation>
    </message>
    <message id="243">
        <source>Deleting directory &apos;</source>
        <translation>Lösche Verzeichnis &apos;</translation>
    </message>
    <message id="244">
        <source>- No action selected!</source>
        <translation>- Keine Aktion ausgewählt!</translation>
    </message>
    <message id="245">
        <source>Copying directory &apos;</source>
        <translation>Kopiere Verzeichnis &apos;</translation>
    </message>
    <message id="246">
        <source>&apos; to &apos;</source>
        <translation>&apos; nach &apos;</translation>
    </message>
    <message id="247">
        <source>Deleting file &apos;</source>
        <translation>Lösche Datei &apos;</translation>
    </message>
    <message id="248">
        <source>Should the file &apos;</source>
        <translation>Soll die Datei &apos;</translation>
    </message>
    <message id="249">
        <source>replace the file located in the destination directory &apos;</source>
        <translation>die im Zielverzeichnis vorhandene Datei &apos;</translation>
    </message>
    <message id="250">
        <source>?</source>
        <translation>ersetzen?</translation>
    </message>
    <message id="251">
        <source>File already exists</source>
        <translation>Datei existiert bereits</translation>
    </message>
    <message id="252">
        <source>Move &apos;</source>
        <translation>Verschiebe &apos;</translation>
    </message>
    <message id="253">
        <source>Copy &apos;</source>
        <translation>Kopiere &apos;</translation>
    </message>
    <message id="254">
        <source>and overwrite with newer file ...</source>
        <translation>und überschreibe mit neuerer Datei ...</translation>
    </message>
    <message id="255">
        <source>Overwrite from file &apos;</source>
        <translation>Überschreiben durch die Datei &apos;</translation>
    </message>
    <message id="256">
        <source>&apos; declined by user.</source>
        <translation>&apos; vom Benutzer abgelehnt.</translation>
    </message>
    <message id="257">
        <source>Move file &apos;</source>
        <translation>Verschiebe Datei &apos;</translation>
    </message>
    <message id="258">
        <source>Copy file &apos;</source>
        <translation>Kopiere Datei &apos;</translation>
    </message>
    <message id="259">
        <source>to</source>
        <translation>nach</translation>
    </message>
    <message id="260">
        <source>Overwrite &apos;</source>
        <translation>Überschreibe &apos;</translation>
    </message>
    <message id="261">
        <source>with &apos;</source>
        <translation>mit &apos;</translation>
    </message>
    <message id="262">
        <source>Move and overwrite with newer file &apos;</source>
        <translation>Verschiebe und überschreibe mit neuerer Datei &apos;</translation>
    </message>
    <message id="263">
        <source>Copy and overwrite with newer file &apos;</source>
        <translation>Kopiere und überschreibe mit neuerer Datei &apos;</translation>
    </message>
    <message id="264">
        <source>older/equal as/to file</source>
        <translation>ist älter als oder gleich alt wie Datei</translation>
    </message>
    <message id="265">
        <source>Copy/move from &apos;</source>
        <translation>Kopieren/Verschieben von &apos;</translation>
    </message>
    <message id="266">
        <source>&apos; failed, file is locked from another program!</source>
        <translation>&apos; fehlgeschlagen, die Datei ist durch ein anderes Programm gesperrt!</translation>
    </message>
    <message id="267">
        <source>&apos; failed - Error</source>
        <translation>&apos; fehlgeschlagen - Fehler</translation>
    </message>
    <message id="268">
        <source>Activity &apos;</source>
        <translation>Aktivität &apos;</translation>
    </message>
    <message id="269">
        <source>Clear whole list with all monitoring activities?</source>
        <translation>Gesamte Liste mit allen Überwachungsaktivitäten löschen?</translation>
    </message>
    <message id="270">
        <source>Clear all activities</source>
        <translation>Alle Aktivitäten löschen</translation>
    </message>
    <message id="271">
        <source>Default list successfully restored!</source>
        <translation>Die Standardliste wurde wiederhergestellt!</translation>
    </message>
    <message id="272">
        <source>Last accessed:</source>
        <translation>Letzter Zugriff:</translation>
    </message>
    <message id="273">
        <source>Date and time successfully synchronized!</source>
        <translation>Datum und Uhrzeit wurden synchronisiert!</translation>
    </message>
    <message id="274">
        <source>Synchronization of date &amp; time</source>
        <translation>Synchronisierung von Datum und Uhrzeit</translation>
    </message>
    <message id="275">
        <source>E-Mail Service not available (needs Outlook 97 or newer)</source>
        <translation>Der E-Mail-Dienst ist nicht verfügbar (Outlook 97 oder neuer erforderlich)</translation>
    </message>
    <message id="281">
        <source>The selected source directory &apos;</source>
        <translation>Das ausgewählte Quellverzeichnis &apos;</translation>
    </message>
    <message id="282">
        <source>The selected destination directory &apos;</source>
        <translation>Das ausgewählte Zielverzeichnis &apos;</translation>
    </message>
    <message id="283">
        <source>The name of an activity should not start with a number.</source>
        <translation>Der Name einer Aktivität darf nicht mit einer Ziffer beginnen.</translation>
    </message>
    <message id="284">
        <source>Name of the activity</source>
        <translation>Name der Aktivität</translation>
    </message>
    <message id="285">
        <source>You must enter a name for the activity.</source>
        <translation>Sie müssen einen Namen für die Aktivität eingeben.</translation>
    </message>
    <message id="286">
        <source>The time was entered in an invalid format. Please change to this format &apos;hh:mm&apos;.</source>
        <translation>Die Uhrzeit wurde in einem ungültigen Format eingegeben. Bitte verwenden Sie das Format &apos;hh:mm&apos;.</translation>
    </message>
    <message id="287">
        <source>Format of time invalid</source>
        <translation>Format der Uhrzeit ungültig</translation>
    </message>
    <message id="288">
        <source>Please enter file extensions without a point as postfix, e.g. exe;zip;dll.</source>
        <translation>Bitte geben Sie die Dateiendungen ohne Punkt ein, z. B. exe;zip;dll.</translation>
    </message>
    <message id="289">
        <source>File extensions</source>
        <translation>Dateiendungen</translation>
    </message>
    <message id="290">
        <source>Date invalid</source>
        <translation>Datum ungültig</translation>
    </message>
    <message id="291">
        <source>The entered date is invalid.</source>
        <translation>Das eingegebene Datum ist ungültig.</translation>
    </message>
    <message id="292">
        <source>The entered date is in the past.</source>
        <translation>Das eingegebene Datum liegt in der Vergangenheit.</translation>
    </message>
    <message id="293">
        <source>The entered time is in the past.</source>
        <translation>Die eingegebene Uhrzeit liegt in der Vergangenheit.</translation>
    </message>
    <message id="294">
        <source>You have selected the windows directory for monitoring.</source>
        <translation>Sie haben das Windows-Verzeichnis zur Überwachung ausgewählt.</translation>
    </message>
    <message id="295">
        <source>May your windows installation could be destroyed!</source>
        <translation>Ihre Windows-Installation könnte dadurch zerstört werden!</translation>
    </message>
    <message id="296">
        <source>Do you really want to proceed?</source>
        <translation>Möchten Sie wirklich fortfahren?</translation>
    </message>
    <message id="297">
        <source>Windows directory selected</source>
        <translation>Windows-Verzeichnis ausgewählt</translation>
    </message>
    <message id="298">
        <source>You have selected the windows system directory for monitoring.</source>
        <translation>Sie haben das Windows-Systemverzeichnis zur Überwachung ausgewählt.</translation>
    </message>
    <message id="299">
        <source>Windows system directory selected</source>
        <translation>Windows-Systemverzeichnis ausgewählt</translation>
    </message>
    <message id="300">
        <source>You have selected the windows installation root directory.</source>
        <translation>Sie haben das Stammverzeichnis der Windows-Installation ausgewählt.</translation>
    </message>
    <message id="301">
        <source>Windows root directory selected</source>
        <translation>Windows-Stammverzeichnis ausgewählt</translation>
    </message>
    <message id="302">
        <source>To send E-Mail you must select an recipient.</source>
        <translation>Zum Senden einer E-Mail müssen Sie einen Empfänger angeben.</translation>
    </message>
    <message id="303">
        <source>E-Mail adress invalid</source>
        <translation>E-Mail-Adresse ungültig</translation>
    </message>
    <message id="304">
        <source>You want to use the E-Mail notification but have not entered an subject.</source>
        <translation>Sie möchten die E-Mail-Benachrichtigung verwenden, haben aber keinen Betreff eingegeben.</translation>
    </message>
    <message id="305">
        <source>No subject entered</source>
        <translation>Kein Betreff eingegeben</translation>
    </message>
    <message id="308">
        <source>Could not read the Outlook contacts.</source>
        <translation>Die Outlook-Kontakte konnten nicht gelesen werden.</translation>
    </message>
    <message id="309">
        <source>You can enter an recipient manual in the textfield.</source>
        <translation>Sie können einen Empfänger von Hand in das Textfeld eingeben.</translation>
    </message>
    <message id="310">
        <source>Outlook contacts</source>
        <translation>Outlook-Kontakte</translation>
    </message>
    <message id="317">
        <source>To save the activity with new name select &apos;Yes&apos;, for creating a new activity press &quot;No&apos;:</source>
        <translation>Um die Aktivität unter dem neuen Namen zu speichern, wählen Sie &apos;Ja&apos;; um eine neue Aktivität anzulegen, wählen Sie &apos;Nein&apos;:</translation>
    </message>
    <message id="318">
        <source>Save activity</source>
        <translation>Aktivität speichern</translation>
    </message>
    <message id="326">
        <source>incl. last accessed info</source>
        <translation>einschl. Angaben zum letzten Zugriff</translation>
    </message>
    <message id="328">
        <source>incl. file from last access</source>
        <translation>einschl. Datei des letzten Zugriffs</translation>
    </message>
    <message id="336">
        <source>Interval settings</source>
        <translation>Intervalleinstellungen</translation>
    </message>
    <message id="337">
        <source>Seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message id="338">
        <source>Minutes</source>
        <translation>Minuten</translation>
    </message>
    <message id="339">
        <source>Hours</source>
        <translation>Stunden</translation>
    </message>
    <message id="340">
        <source>Interval only once-time exectution, then stop activity</source>
        <translation>Intervall nur einmal ausführen, dann Aktivität beenden</translation>
    </message>
    <message id="341">
        <source>Comment to activity</source>
        <translation>Kommentar zur Aktivität</translation>
    </message>
    <message id="342">
        <source>Select date</source>
        <translation>Datum auswählen</translation>
    </message>
    <message id="343">
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message id="344">
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message id="345">
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message id="347">
        <source>Copy files</source>
        <translation>Dateien kopieren</translation>
    </message>
    <message id="348">
        <source>Move files</source>
        <translation>Dateien verschieben</translation>
    </message>
    <message id="349">
        <source>Mirror directory</source>
        <translation>Verzeichnis spiegeln</translation>
    </message>
    <message id="350">
        <source>No action</source>
        <translation>Keine Aktion</translation>
    </message>
    <message id="351">
        <source>Overwrite files without asking</source>
        <translation>Dateien ohne Nachfrage überschreiben</translation>
    </message>
    <message id="352">
        <source>Observe only newer files</source>
        <translation>Nur neuere Dateien beachten</translation>
    </message>
    <message id="353">
        <source>Message/PopUp by changes</source>
        <translation>Meldung/Pop-up bei Änderungen</translation>
    </message>
    <message id="354">
        <source>incl. subfolders</source>
        <translation>einschl. Unterverzeichnisse</translation>
    </message>
    <message id="355">
        <source>Execute by changes:</source>
        <translation>Bei Änderungen ausführen:</translation>
    </message>
    <message id="356">
        <source>Logfile of activity:</source>
        <translation>Protokolldatei der Aktivität:</translation>
    </message>
    <message id="357">
        <source>Select programs/scripts</source>
        <translation>Programme/Skripte auswählen</translation>
    </message>
    <message id="358">
        <source>Select logfile</source>
        <translation>Protokolldatei auswählen</translation>
    </message>
    <message id="360">
        <source>Observed file types:</source>
        <translation>Überwachte Dateitypen:</translation>
    </message>
    <message id="361">
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message id="362">
        <source>Only this:</source>
        <translation>Nur diese:</translation>
    </message>
    <message id="364">
        <source>Use SMTP host for mail sending:</source>
        <translation>SMTP-Server zum Senden der E-Mail verwenden:</translation>
    </message>
    <message id="366">
        <source>To send E-Mail you must select an sender.</source>
        <translation>Zum Senden einer E-Mail müssen Sie einen Absender angeben.</translation>
    </message>
    <message id="368">
        <source>incl. Computername in E-Mail message</source>
        <translation>einschl. Computername in der E-Mail-Nachricht</translation>
    </message>
    <message id="369">
        <source>from system (name)</source>
        <translation>vom System (Name)</translation>
    </message>
    <message id="370">
        <source>Please check the E-Mail address.</source>
        <translation>Bitte prüfen Sie die E-Mail-Adresse.</translation>
    </message>
    <message id="371">
        <source>Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will not be deleted but get the extension .OLD)?</source>
        <translation>Die Konfigurationsdatei ist beschädigt oder ungültig. Möchten Sie eine neue, leere Datei anlegen (die alte Datei wird nicht gelöscht, sondern erhält die Endung .OLD)?</translation>
    </message>
    <message id="372">
        <source>The current file cannot be imported again!</source>
        <translation>Die aktuelle Datei kann nicht erneut importiert werden!</translation>
    </message>
    <message id="373">
        <source>The file is in use and can&apos;t be overwritten.</source>
        <translation>Die Datei wird gerade verwendet und kann nicht überschrieben werden.</translation>
    </message>
    <message id="374">
        <source>Text not found!</source>
        <translation>Der Text wurde nicht gefunden!</translation>
    </message>
    <message id="375">
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message id="376">
        <source>Text to search:</source>
        <translation>Zu suchender Text:</translation>
    </message>
    <message id="377">
        <source>Match ca&amp;se</source>
        <translation>Groß-/&amp;Kleinschreibung beachten</translation>
    </message>
    <message id="378">
        <source>Search again</source>
        <translation>Weitersuchen</translation>
    </message>
    <message id="380">
        <source>You have not entered any file types.</source>
        <translation>Sie haben keine Dateitypen eingegeben.</translation>
    </message>
    <message id="381">
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message id="383">
        <source>Execute all selected activities</source>
        <translation>Alle ausgewählten Aktivitäten ausführen</translation>
    </message>
    <message id="384">
        <source>Should the marked activities started at once now?</source>
        <translation>Sollen die markierten Aktivitäten jetzt sofort gestartet werden?</translation>
    </message>
    <message id="385">
        <source>Start activities</source>
        <translation>Aktivitäten starten</translation>
    </message>
    <message id="386">
        <source>The action can&apos;t be saved because another action with the same name already exists! Please change the name of this activity!</source>
        <translation>Die Aktivität kann nicht gespeichert werden, weil es bereits eine andere mit demselben Namen gibt! Bitte ändern Sie den Namen dieser Aktivität!</translation>
    </message>
    <message id="387">
        <source>Count executions</source>
        <translation>Anzahl Ausführungen</translation>
    </message>
    <message id="388">
        <source>Write logfile</source>
        <translation>Protokolldatei schreiben</translation>
    </message>
    <message id="389">
        <source>Executable files</source>
        <translation>Ausführbare Dateien</translation>
    </message>
    <message id="390">
        <source>File extensions</source>
        <translation>Dateiendungen</translation>
    </message>
    <message id="394">
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message id="395">
        <source>Last execution</source>
        <translation>Letzte Ausführung</translation>
    </message>
    <message id="396">
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message id="397">
        <source>Time format is invalid, please reenter!</source>
        <translation>Das Format der Uhrzeit ist ungültig, bitte geben Sie sie erneut ein!</translation>
    </message>
    <message id="398">
        <source>Open source dir. in Explorer</source>
        <translation>Quellverz. im Explorer öffnen</translation>
    </message>
    <message id="399">
        <source>Open target dir. in Explorer</source>
        <translation>Zielverz. im Explorer öffnen</translation>
    </message>
    <message id="403">
        <source>Abort</source>
        <translation>Abbruch</translation>
    </message>
    <message id="404">
        <source>Aborted by user while processing action!</source>
        <translation>Abbruch durch den Benutzer während der Ausführung der Aktion!</translation>
    </message>
    <message id="405">
        <source>Activate &quot;SafeExit&quot; while processing by &apos;F8&apos; key</source>
        <translation>&quot;SafeExit&quot; während der Ausführung mit der Taste &apos;F8&apos; aktivieren</translation>
    </message>
    <message id="406">
        <source>Check for update ...</source>
        <translation>Nach Updates suchen ...</translation>
    </message>
    <message id="407">
        <source>A new version (</source>
        <translation>Eine neue Version (</translation>
    </message>
    <message id="408">
        <source>) is available.</source>
        <translation>) ist verfügbar.</translation>
    </message>
    <message id="409">
        <source>Do you want to visit the download page?</source>
        <translation>Möchten Sie die Download-Seite besuchen?</translation>
    </message>
    <message id="410">
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message id="411">
        <source>The latest version of the application is installed, no update available.</source>
        <translation>Die neueste Version des Programms ist installiert, es ist kein Update verfügbar.</translation>
    </message>
    <message id="412">
        <source>Service installed successfull.</source>
        <translation>Der Dienst wurde installiert.</translation>
    </message>
    <message id="413">
        <source>Service installation failed.</source>
        <translation>Die Installation des Dienstes ist fehlgeschlagen.</translation>
    </message>
    <message id="414">
        <source>Service uninstalled successfull.</source>
        <translation>Der Dienst wurde deinstalliert.</translation>
    </message>
    <message id="415">
        <source>Service uninstall failed.</source>
        <translation>Die Deinstallation des Dienstes ist fehlgeschlagen.</translation>
    </message>
    <message id="416">
        <source>Unknown service parameter.</source>
        <translation>Unbekannter Dienstparameter.</translation>
    </message>
    <message id="417">
        <source>Kalvenor service configuration</source>
        <translation>Konfiguration des Kalvenor-Dienstes</translation>
    </message>
    <message id="419">
        <source>Service continued</source>
        <translation>Dienst fortgesetzt</translation>
    </message>
    <message id="420">
        <source>paused</source>
        <translation>angehalten</translation>
    </message>
    <message id="421">
        <source>Start service</source>
        <translation>Dienst starten</translation>
    </message>
    <message id="422">
        <source>Stop service</source>
        <translation>Dienst beenden</translation>
    </message>
    <message id="423">
        <source>Install service</source>
        <translation>Dienst installieren</translation>
    </message>
    <message id="424">
        <source>Uninstall service</source>
        <translation>Dienst deinstallieren</translation>
    </message>
    <message id="425">
        <source>Application will be closed to stop service.</source>
        <translation>Das Programm wird beendet, um den Dienst zu beenden.</translation>
    </message>
    <message id="426">
        <source>Application will be closed to start service.</source>
        <translation>Das Programm wird beendet, um den Dienst zu starten.</translation>
    </message>
    <message id="427">
        <source>Note: For further configuration of the service please read the manual.</source>
        <translation>Hinweis: Zur weiteren Konfiguration des Dienstes lesen Sie bitte das Handbuch.</translation>
    </message>
    <message id="428">
        <source>Service settings</source>
        <translation>Diensteinstellungen</translation>
    </message>
    <message id="429">
        <source>Stop action, if directory doesn&apos;t exist</source>
        <translation>Aktion beenden, wenn ein Verzeichnis nicht existiert</translation>
    </message>
    <message id="430">
        <source>&apos; not found, monitoring suspended for this interval.</source>
        <translation>&apos; nicht gefunden, Überwachung für dieses Intervall ausgesetzt.</translation>
    </message>
    <message id="431">
        <source>&apos; suspended for this interval.</source>
        <translation>&apos; für dieses Intervall ausgesetzt.</translation>
    </message>
</context>
<context>
    <name>Own texts</name>
    <message id="322">
        <source>Recipient:</source>
        <translation>Empfänger:</translation>
    </message>
    <message id="323">
        <source>Subject:</source>
        <translation>Betreff:</translation>
    </message>
    <message id="418">
        <source>Service </source>
        <translation>Dienst </translation>
    </message>
    <message id="432">
        <source>Another program changed the activity file on disk. Nothing was saved.</source>
        <translation>Die Aktivitätsdatei wurde von einem anderen Programm auf der Festplatte geändert. Es wurde nichts gespeichert.</translation>
    </message>
    <message id="433">
        <source>The activity file could not be loaded, so nothing can be saved to it.</source>
        <translation>Die Aktivitätsdatei konnte nicht geladen werden, deshalb kann nichts in ihr gespeichert werden.</translation>
    </message>
    <message id="434">
        <source>The activity file could not be saved:</source>
        <translation>Die Aktivitätsdatei konnte nicht gespeichert werden:</translation>
    </message>
    <message id="435">
        <source>The damaged activity file could not be moved aside:</source>
        <translation>Die beschädigte Aktivitätsdatei konnte nicht verschoben werden:</translation>
    </message>
    <message id="436">
        <source>The activity file could not be created:</source>
        <translation>Die Aktivitätsdatei konnte nicht angelegt werden:</translation>
    </message>
    <message id="437">
        <source>Another process is already using this activity file. Monitoring was not started.</source>
        <translation>Ein anderer Prozess arbeitet bereits mit dieser Aktivitätsdatei. Die Überwachung wurde nicht gestartet.</translation>
    </message>
    <message id="438">
        <source>Activities: %1, active: %2</source>
        <translation>Aktivitäten: %1, aktiv: %2</translation>
    </message>
    <message id="439">
        <source>To accept this notice, start Kalvenor once with a window, or set Accepted=Yes under [Options] in the settings</source>
        <translation>Um diesen Hinweis anzunehmen, starten Sie Kalvenor einmal mit Fenster oder setzen Sie in den Einstellungen unter [Options] Accepted=Yes</translation>
    </message>
    <message id="440">
        <source>Monitoring is off: the option &quot;After start immediately start monitoring&quot; is not set.</source>
        <translation>Die Überwachung ist ausgeschaltet: Die Option &quot;Nach dem Start sofort mit der Überwachung beginnen&quot; ist nicht gesetzt.</translation>
    </message>
    <message id="443">
        <source>The activity file could not be read:</source>
        <translation>Die Aktivitätsdatei konnte nicht gelesen werden:</translation>
    </message>
    <message id="445">
        <source>&amp;Activity</source>
        <translation>&amp;Aktivität</translation>
    </message>
    <message id="446">
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message id="447">
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message id="448">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="449">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="450">
        <source>Runs activities from an activity file once, immediately.</source>
        <translation>Führt Aktivitäten einer Aktivitätsdatei einmal sofort aus.</translation>
    </message>
    <message id="451">
        <source>Path of the activity file.</source>
        <translation>Pfad der Aktivitätsdatei.</translation>
    </message>
    <message id="452">
        <source>Names of the activities to run, in this order. Without names, every active one.</source>
        <translation>Namen der auszuführenden Aktivitäten in dieser Reihenfolge; ohne Namen alle aktiven.</translation>
    </message>
    <message id="453">
        <source>The activity file '%1' has no activity '%2'.</source>
        <translation>Die Aktivitätsdatei '%1' enthält keine Aktivität '%2'.</translation>
    </message>
    <message id="454">
        <source>Another process is using the activity file '%1'. Nothing was run.</source>
        <translation>Ein anderer Prozess arbeitet mit der Aktivitätsdatei '%1'. Nichts wurde ausgeführt.</translation>
    </message>
    <message id="460">
        <source>New activity</source>
        <translation>Neue Aktivität</translation>
    </message>
    <message id="461">
        <source>Properties of &apos;%1&apos;</source>
        <translation>Eigenschaften von &apos;%1&apos;</translation>
    </message>
    <message id="462">
        <source>&amp;Directories</source>
        <translation>&amp;Verzeichnisse</translation>
    </message>
    <message id="463">
        <source>&amp;Schedule</source>
        <translation>&amp;Zeitplan</translation>
    </message>
    <message id="464">
        <source>&amp;Action</source>
        <translation>A&amp;ktion</translation>
    </message>
    <message id="465">
        <source>E-&amp;mail</source>
        <translation>E-&amp;Mail</translation>
    </message>
    <message id="466">
        <source>Activity is &amp;enabled</source>
        <translation>Aktivität ist aktivi&amp;ert</translation>
    </message>
    <message id="467">
        <source>Select source directory</source>
        <translation>Quellverzeichnis auswählen</translation>
    </message>
    <message id="468">
        <source>Select destination directory</source>
        <translation>Zielverzeichnis auswählen</translation>
    </message>
    <message id="469">
        <source>Recent source directories</source>
        <translation>Zuletzt verwendete Quellverzeichnisse</translation>
    </message>
    <message id="470">
        <source>Recent destination directories</source>
        <translation>Zuletzt verwendete Zielverzeichnisse</translation>
    </message>
    <message id="472">
        <source>Fixed time</source>
        <translation>Fester Zeitpunkt</translation>
    </message>
    <message id="473">
        <source>On&amp;ce, on this date:</source>
        <translation>&amp;Einmalig, an diesem Datum:</translation>
    </message>
    <message id="474">
        <source>At this &amp;time of day:</source>
        <translation>Zu dieser &amp;Uhrzeit:</translation>
    </message>
    <message id="475">
        <source>DMY</source>
        <translation>TMJ</translation>
    </message>
    <message id="476">
        <source>Reactions</source>
        <translation>Reaktionen</translation>
    </message>
    <message id="477">
        <source>e.g. exe;zip;dll</source>
        <translation>z. B. exe;zip;dll</translation>
    </message>
    <message id="478">
        <source>&amp;Notify by e-mail after each run</source>
        <translation>Nach jedem Lauf per E-Mail &amp;benachrichtigen</translation>
    </message>
    <message id="479">
        <source>S&amp;ender:</source>
        <translation>&amp;Absender:</translation>
    </message>
    <message id="480">
        <source>Co&amp;py to:</source>
        <translation>Ko&amp;pie an:</translation>
    </message>
    <message id="481">
        <source>Message te&amp;xt:</source>
        <translation>Nachrichten&amp;text:</translation>
    </message>
    <message id="482">
        <source>attach the &amp;logfile</source>
        <translation>Protokoll&amp;datei anhängen</translation>
    </message>
    <message id="483">
        <source>Load &amp;contacts</source>
        <translation>Kontakte &amp;laden</translation>
    </message>
    <message id="484">
        <source>This name cannot be used. A name starts with a letter or &quot;_&quot; and contains only letters, digits, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;, but no blanks. The character set of the activity file must include every letter.</source>
        <translation>Dieser Name kann nicht verwendet werden. Ein Name beginnt mit einem Buchstaben oder &quot;_&quot; und enthält nur Buchstaben, Ziffern, &quot;-&quot;, &quot;_&quot; und &quot;.&quot;; Leerzeichen sind nicht möglich. Die Buchstaben müssen im Zeichensatz der Aktivitätsdatei vorkommen.</translation>
    </message>
    <message id="485">
        <source>No mail program with readable contacts was found.</source>
        <translation>Es wurde kein Mailprogramm gefunden, dessen Kontakte gelesen werden können.</translation>
    </message>
    <message id="486">
        <source>No mail program was found that could send the message. Without an SMTP host, no mail is sent.</source>
        <translation>Es wurde kein Mailprogramm gefunden, das die Nachricht senden könnte. Ohne den SMTP-Server wird nichts gesendet.</translation>
    </message>
    <message id="487">
        <source>empty: the recipient's mail host</source>
        <translation>leer: Mailserver des Empfängers</translation>
    </message>
    <message id="601">
        <source>%1: %2 files, %3</source>
        <translation>%1: %2 Dateien, %3</translation>
    </message>
    <message id="520">
        <source>The entry that starts Kalvenor with your session could not be changed:</source>
        <translation>Der Eintrag, der Kalvenor mit Ihrer Sitzung startet, konnte nicht geändert werden:</translation>
    </message>
    <message id="522">
        <source>The logfile could not be read:</source>
        <translation>Die Protokolldatei konnte nicht gelesen werden:</translation>
    </message>
    <message id="523">
        <source>The logfile could not be deleted:</source>
        <translation>Die Protokolldatei konnte nicht gelöscht werden:</translation>
    </message>
    <message id="524">
        <source>The options could not be stored:</source>
        <translation>Die Optionen konnten nicht gespeichert werden:</translation>
    </message>
    <message id="525">
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message id="526">
        <source>The web page %1 could not be opened.</source>
        <translation>Die Internetseite %1 konnte nicht geöffnet werden.</translation>
    </message>
    <message id="527">
        <source>About Kalvenor Pro</source>
        <translation>Info über Kalvenor Pro</translation>
    </message>
    <message id="528">
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message id="529">
        <source>This program comes without any warranty. Its use is subject to the license terms and conditions in the manual.

It uses Qt under the GNU Lesser General Public License, version 3, and libxml2 under the MIT License.</source>
        <translation>Dieses Programm wird ohne jede Gewährleistung bereitgestellt. Für seine Verwendung gelten die Lizenzbedingungen im Handbuch.

Es verwendet Qt unter der GNU Lesser General Public License, Version 3, und libxml2 unter der MIT-Lizenz.</translation>
    </message>
    <message id="530">
        <source>&amp;System information ...</source>
        <translation>&amp;Systeminformationen ...</translation>
    </message>
    <message id="531">
        <source>C&amp;lose</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message id="532">
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message id="533">
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message id="534">
        <source>Qt</source>
        <translation>Qt</translation>
    </message>
    <message id="535">
        <source>Operating system</source>
        <translation>Betriebssystem</translation>
    </message>
    <message id="536">
        <source>Kernel</source>
        <translation>Kernel</translation>
    </message>
    <message id="537">
        <source>Architecture</source>
        <translation>Architektur</translation>
    </message>
    <message id="538">
        <source>Processors</source>
        <translation>Prozessoren</translation>
    </message>
    <message id="539">
        <source>Memory</source>
        <translation>Arbeitsspeicher</translation>
    </message>
    <message id="540">
        <source>Display</source>
        <translation>Bildschirm</translation>
    </message>
    <message id="541">
        <source>Program folder</source>
        <translation>Programmordner</translation>
    </message>
    <message id="542">
        <source>Data folder</source>
        <translation>Datenordner</translation>
    </message>
    <message id="543">
        <source>Activity file</source>
        <translation>Aktivitätsdatei</translation>
    </message>
    <message id="544">
        <source>Logfile</source>
        <translation>Protokolldatei</translation>
    </message>
    <message id="545">
        <source>The folder &apos;%1&apos; could not be opened.</source>
        <translation>Der Ordner &apos;%1&apos; konnte nicht geöffnet werden.</translation>
    </message>
    <message id="580">
        <source>The service manager could not be started.</source>
        <translation>Die Dienstverwaltung konnte nicht gestartet werden.</translation>
    </message>
    <message id="581">
        <source>The time server did not answer in time.</source>
        <translation>Der Zeitserver hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message id="582">
        <source>The time server's answer is not a valid time.</source>
        <translation>Die Antwort des Zeitservers ist keine Uhrzeit.</translation>
    </message>
    <message id="583">
        <source>Kalvenor activities</source>
        <translation>Kalvenor-Aktivitäten</translation>
    </message>
    <message id="584">
        <source>The computer could not be switched off.</source>
        <translation>Der Computer konnte nicht ausgeschaltet werden.</translation>
    </message>
    <message id="585">
        <source>No lock could be created in the state folder ($XDG_STATE_HOME, usually ~/.local/state), so another process may be using the same files. Nothing was started.</source>
        <translation>Im Ordner für den Zustand von Programmen ($XDG_STATE_HOME, normalerweise ~/.local/state) konnte keine Sperre angelegt werden; vielleicht arbeitet ein anderer Prozess mit denselben Dateien. Nichts wurde gestartet.</translation>
    </message>
    <message id="586">
        <source>Another process is using this activity file. Nothing was saved.</source>
        <translation>Ein anderer Prozess arbeitet mit dieser Aktivitätsdatei. In ihr wurde nichts gespeichert.</translation>
    </message>
    <message id="587">
        <source>Kalvenor retries to start monitoring every minute.</source>
        <translation>Der Start der Überwachung wird jede Minute erneut versucht.</translation>
    </message>
    <message id="588">
        <source>All activities have ended. The computer will be switched off.</source>
        <translation>Alle Aktivitäten sind beendet. Der Computer wird ausgeschaltet.</translation>
    </message>
    <message id="589">
        <source>Seconds left: %1</source>
        <translation>Verbleibende Sekunden: %1</translation>
    </message>
    <message id="590">
        <source>The computer was not switched off: it was cancelled, or new work has started.</source>
        <translation>Der Computer wurde nicht ausgeschaltet: Es wurde abgebrochen, oder die Arbeit geht weiter.</translation>
    </message>
    <message id="610">
        <source>'%1' is left alone: it belongs to Kalvenor.</source>
        <translation>'%1' bleibt, wie es ist: Die Datei gehört zu Kalvenor.</translation>
    </message>
    <message id="611">
        <source>Nothing is deleted in '%1': another file system is mounted there.</source>
        <translation>In '%1' wird nichts gelöscht: Dort ist ein anderes Dateisystem eingehängt.</translation>
    </message>
    <message id="612">
        <source>Directory '%1' is left alone: it is or contains a directory of this activity.</source>
        <translation>Verzeichnis '%1' bleibt, wie es ist: Es ist oder enthält ein Verzeichnis dieser Aktivität.</translation>
    </message>
    <message id="613">
        <source>Directory '%1' is left alone: it is nested more than 1,000 levels deep.</source>
        <translation>Verzeichnis '%1' bleibt, wie es ist: Es liegt mehr als 1.000 Ebenen tief.</translation>
    </message>
    <message id="614">
        <source>Run ended early: the program is closing.</source>
        <translation>Lauf vorzeitig beendet: Das Programm wird geschlossen.</translation>
    </message>
    <message id="615">
        <source>Run ended early: monitoring was stopped.</source>
        <translation>Lauf vorzeitig beendet: Die Überwachung wurde beendet.</translation>
    </message>
    <message id="616">
        <source>Run ended early: the activity was changed, or another activity file was opened.</source>
        <translation>Lauf vorzeitig beendet: Die Aktivität wurde geändert oder eine andere Aktivitätsdatei geöffnet.</translation>
    </message>
    <message id="617">
        <source>Run ended early: a directory of the activity no longer exists.</source>
        <translation>Lauf vorzeitig beendet: Ein Verzeichnis der Aktivität ist nicht mehr da.</translation>
    </message>
    <message id="618">
        <source>Run ended early: a directory cannot be read, so nothing is deleted.</source>
        <translation>Lauf vorzeitig beendet: Solange ein Verzeichnis nicht gelesen werden kann, wird nichts gelöscht.</translation>
    </message>
    <message id="619">
        <source>Run ended early: a directory was replaced.</source>
        <translation>Lauf vorzeitig beendet: Ein Verzeichnis wurde durch ein anderes ersetzt.</translation>
    </message>
    <message id="620">
        <source>'%1' belongs to Kalvenor itself and cannot be the log file of an activity.</source>
        <translation>'%1' gehört zu Kalvenor selbst und kann nicht die Protokolldatei einer Aktivität sein.</translation>
    </message>
    <message id="630">
        <source>Not sent: the program is closing.</source>
        <translation>Nicht gesendet: Das Programm wird beendet.</translation>
    </message>
    <message id="631">
        <source>Not sent: %1 later e-mails of this activity are waiting.</source>
        <translation>Nicht gesendet: %1 spätere E-Mails dieser Aktivität warten.</translation>
    </message>
    <message id="632">
        <source>'%1' is not attached: %2</source>
        <translation>'%1' wird nicht angehängt: %2</translation>
    </message>
    <message id="650">
        <source>Reload it now? Entries in an open form are kept.</source>
        <translation>Jetzt neu laden? Was in einem offenen Formular eingegeben wurde, bleibt dort stehen.</translation>
    </message>
    <message id="651">
        <source>The changes are not saved. Discard them?</source>
        <translation>Die Änderungen sind nicht gespeichert. Sollen sie verworfen werden?</translation>
    </message>
    <message id="652">
        <source>An activity is still running. It will end after the current file. Exit anyway?</source>
        <translation>Eine Aktivität läuft noch. Sie endet nach der aktuellen Datei. Trotzdem beenden?</translation>
    </message>
    <message id="653">
        <source>'%1' is a directory. Please enter the name of a file.</source>
        <translation>'%1' ist ein Verzeichnis. Bitte geben Sie den Namen einer Datei ein.</translation>
    </message>
    <message id="654">
        <source>Kalvenor Pro Anleitung.en.html</source>
        <translation>Kalvenor Pro Anleitung.de.html</translation>
    </message>
    <message id="655">
        <source>The service is not installed.</source>
        <translation>Der Dienst ist nicht installiert.</translation>
    </message>
    <message id="656">
        <source>The service is installed but not running.</source>
        <translation>Der Dienst ist installiert, läuft aber nicht.</translation>
    </message>
    <message id="657">
        <source>The service is running.</source>
        <translation>Der Dienst läuft.</translation>
    </message>
    <message id="658">
        <source>The service has failed: %1</source>
        <translation>Der Dienst ist fehlgeschlagen: %1</translation>
    </message>
    <message id="659">
        <source>The state of the service is unknown: %1</source>
        <translation>Der Zustand des Dienstes ist unbekannt: %1</translation>
    </message>
    <message id="660">
        <source>Please wait for the service manager ...</source>
        <translation>Bitte warten Sie auf die Dienstverwaltung ...</translation>
    </message>
    <message id="670">
        <source>Finishing an interrupted move: '%1' is removed if '%2' holds the same bytes</source>
        <translation>Unterbrochenes Verschieben wird abgeschlossen: '%1' wird entfernt, wenn '%2' dieselben Bytes enthält</translation>
    </message>
    <message id="671">
        <source>The run is held: '%1' is not on the drive of the last run, as if that drive were not mounted. "Start activity immediately" or kalvenor-run --new-drive goes on with the new drive.</source>
        <translation>Der Lauf wird zurückgehalten: '%1' liegt nicht auf dem Laufwerk des letzten Laufs, als wäre dieses nicht eingehängt. "Aktivität sofort starten" oder kalvenor-run --new-drive macht mit dem neuen Laufwerk weiter.</translation>
    </message>
    <message id="672">
        <source>Go on although a directory is not on the drive of the last run.</source>
        <translation>Weitermachen, obwohl ein Verzeichnis nicht auf dem Laufwerk des letzten Laufs liegt.</translation>
    </message>
    <message id="690">
        <source>The activity file holds more than this program can read. It is left as it is:</source>
        <translation>Die Aktivitätendatei enthält mehr, als dieses Programm lesen kann. Sie bleibt, wie sie ist:</translation>
    </message>
    <message id="700">
        <source>This installation of Kalvenor Pro is updated together with the other packages of your system.</source>
        <translation>Diese Installation von Kalvenor Pro wird zusammen mit den anderen Paketen Ihres Systems aktualisiert.</translation>
    </message>
    <message id="701">
        <source>This build of Kalvenor Pro knows no address where newer versions are announced.</source>
        <translation>Diese Ausgabe von Kalvenor Pro kennt keine Adresse, unter der neuere Versionen bekannt gegeben werden.</translation>
    </message>
    <message id="702">
        <source>This build of Kalvenor Pro knows no address of its maker's home page.</source>
        <translation>Diese Ausgabe von Kalvenor Pro kennt keine Adresse der Homepage ihres Herstellers.</translation>
    </message>
    <message id="710">
        <source>There is no activity yet. An activity copies, moves or mirrors the files of one folder into another.</source>
        <translation>Noch gibt es keine Aktivität. Eine Aktivität kopiert, verschiebt oder spiegelt die Dateien eines Ordners in einen anderen.</translation>
    </message>
    <message id="711">
        <source>or drop a folder here</source>
        <translation>oder einen Ordner hierher ziehen</translation>
    </message>
    <message id="712">
        <source>Whatever is only in the destination directory is deleted there, for good.</source>
        <translation>Was es nur im Zielverzeichnis gibt, wird dort endgültig gelöscht.</translation>
    </message>
    <message id="713">
        <source>This folder does not exist.</source>
        <translation>Diesen Ordner gibt es nicht.</translation>
    </message>
    <message id="714">
        <source>Create folder</source>
        <translation>Ordner anlegen</translation>
    </message>
    <message id="715">
        <source>The folder could not be created: %1</source>
        <translation>Der Ordner konnte nicht angelegt werden: %1</translation>
    </message>
    <message id="716">
        <source>Use "%1"</source>
        <translation>„%1“ verwenden</translation>
    </message>
    <message id="717">
        <source>No blanks, no signs such as "&amp;"; a letter or "_" in front.</source>
        <translation>Keine Leerzeichen oder Zeichen wie „&amp;“; vorn ein Buchstabe oder „_“.</translation>
    </message>
    <message id="720">
        <source>Create an example ...</source>
        <translation>Ein Beispiel anlegen ...</translation>
    </message>
    <message id="721">
        <source>Where to put the example</source>
        <translation>Wohin das Beispiel soll</translation>
    </message>
    <message id="722">
        <source>Example</source>
        <translation>Beispiel</translation>
    </message>
    <message id="723">
        <source>Kalvenor example</source>
        <translation>Kalvenor-Beispiel</translation>
    </message>
    <message id="724">
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message id="725">
        <source>Destination</source>
        <translation>Ziel</translation>
    </message>
    <message id="726">
        <source>Welcome.txt</source>
        <translation>Willkommen.txt</translation>
    </message>
    <message id="727">
        <source>Once monitoring is on, this file is copied into the destination folder.</source>
        <translation>Sobald die Überwachung läuft, wird diese Datei in den Zielordner kopiert.</translation>
    </message>
    <message id="728">
        <source>Change me.txt</source>
        <translation>Ändere mich.txt</translation>
    </message>
    <message id="729">
        <source>Change this text and save it: ten seconds later the copy has changed, too.</source>
        <translation>Ändern Sie diesen Text und speichern Sie ihn: Zehn Sekunden später ist auch die Kopie geändert.</translation>
    </message>
    <message id="730">
        <source>Start monitoring, then put a file into the source folder: within ten seconds it is in the destination folder, and the log says so.</source>
        <translation>Starten Sie die Überwachung und legen Sie eine Datei in den Quellordner: Binnen zehn Sekunden ist sie im Zielordner, und die Logdatei sagt es.</translation>
    </message>
    <message id="731">
        <source>There is an activity "%1" already. It is selected now.</source>
        <translation>Eine Aktivität „%1“ gibt es schon. Sie ist jetzt ausgewählt.</translation>
    </message>
    <message id="732">
        <source>The example could not be created: %1</source>
        <translation>Das Beispiel konnte nicht angelegt werden: %1</translation>
    </message>
    <message id="733">
        <source>Last &amp;files</source>
        <translation>Letzte &amp;Dateien</translation>
    </message>
    <message id="734">
        <source>&amp;Clear this list</source>
        <translation>Diese &amp;Liste leeren</translation>
    </message>
    <message id="735">
        <source>Delete all selected activities</source>
        <translation>Alle ausgewählten Aktivitäten löschen</translation>
    </message>
    <message id="736">
        <source>Should these %1 activities really be deleted?</source>
        <translation>Sollen diese %1 Aktivitäten wirklich gelöscht werden?</translation>
    </message>
    <message id="737">
        <source>... and %1 more</source>
        <translation>... und %1 weitere</translation>
    </message>
    <message id="780">
        <source>Run ended early: you stopped it.</source>
        <translation>Lauf vorzeitig beendet: Sie haben ihn angehalten.</translation>
    </message>
    <message id="781">
        <source>Has not run yet.</source>
        <translation>Noch nicht gelaufen.</translation>
    </message>
    <message id="782">
        <source>Is running.</source>
        <translation>Läuft gerade.</translation>
    </message>
    <message id="783">
        <source>Ran %1: %2.</source>
        <translation>Gelaufen %1: %2.</translation>
    </message>
    <message id="784">
        <source>no file copied or moved</source>
        <translation>nichts kopiert, verschoben oder gelöscht</translation>
    </message>
    <message id="785">
        <source>files copied or moved: %1 (%2)</source>
        <translation>Dateien kopiert oder verschoben: %1 (%2)</translation>
    </message>
    <message id="786">
        <source>Failed %1: %2</source>
        <translation>Fehlgeschlagen %1: %2</translation>
    </message>
    <message id="787">
        <source>(and %1 more failures)</source>
        <translation>(und %1 weitere Fehler)</translation>
    </message>
    <message id="788">
        <source>Ended early %1: %2 (%3)</source>
        <translation>Vorzeitig beendet %1: %2 (%3)</translation>
    </message>
    <message id="789">
        <source>Stop this run after the present file</source>
        <translation>Diesen Lauf nach der aktuellen Datei anhalten</translation>
    </message>
    <message id="790">
        <source>Click: show it in the log</source>
        <translation>Klick: im Protokoll zeigen</translation>
    </message>
    <message id="791">
        <source>idle</source>
        <translation>bereit</translation>
    </message>
    <message id="792">
        <source>monitoring</source>
        <translation>überwacht</translation>
    </message>
    <message id="793">
        <source>failed: %1</source>
        <translation>fehlgeschlagen: %1</translation>
    </message>
    <message id="794">
        <source>&amp;Columns</source>
        <translation>&amp;Spalten</translation>
    </message>
    <message id="795">
        <source>Move to the &amp;left</source>
        <translation>Nach &amp;links</translation>
    </message>
    <message id="796">
        <source>Move to the &amp;right</source>
        <translation>Nach &amp;rechts</translation>
    </message>
    <message id="797">
        <source>&amp;Standard columns</source>
        <translation>&amp;Standardspalten</translation>
    </message>
    <message id="800">
        <source>Run ended early: something is no longer as the preview showed it.</source>
        <translation>Lauf vorzeitig beendet: Etwas ist nicht mehr so, wie die Vorschau es zeigte.</translation>
    </message>
    <message id="801">
        <source>copy</source>
        <translation>kopieren</translation>
    </message>
    <message id="802">
        <source>move</source>
        <translation>verschieben</translation>
    </message>
    <message id="803">
        <source>replace</source>
        <translation>ersetzen</translation>
    </message>
    <message id="804">
        <source>delete</source>
        <translation>löschen</translation>
    </message>
    <message id="805">
        <source>ask</source>
        <translation>fragen</translation>
    </message>
    <message id="806">
        <source>leave alone</source>
        <translation>lassen</translation>
    </message>
    <message id="807">
        <source>fail</source>
        <translation>schlägt fehl</translation>
    </message>
    <message id="808">
        <source>only say what would be done</source>
        <translation>nur sagen, was getan würde</translation>
    </message>
    <message id="809">
        <source>print how it went, or what would be done, as JSON</source>
        <translation>wie es ausging oder was getan würde als JSON ausgeben</translation>
    </message>
    <message id="810">
        <source>%1: copy %2, move %3, replace %4, delete %5, ask %6, leave alone %7, fail %8; to be written: %9</source>
        <translation>%1: kopieren %2, verschieben %3, ersetzen %4, löschen %5, fragen %6, lassen %7, schlägt fehl %8; zu schreiben: %9</translation>
    </message>
    <message id="740">
        <source>Log window</source>
        <translation>Protokollfenster</translation>
    </message>
    <message id="741">
        <source>There is no log to show yet. A log of the program is switched on in the general options ("Settings"), the log of one activity on its "Action" tab ("Properties").</source>
        <translation>Es gibt noch kein Protokoll. Das Protokoll des Programms wird in den allgemeinen Optionen eingeschaltet („Einstellungen“), das einer Aktivität in ihrer Registerkarte „Aktion“ („Eigenschaften“).</translation>
    </message>
    <message id="742">
        <source>Show only:</source>
        <translation>Nur anzeigen:</translation>
    </message>
    <message id="743">
        <source>&amp;Copied</source>
        <translation>&amp;Kopiert</translation>
    </message>
    <message id="744">
        <source>&amp;Moved</source>
        <translation>&amp;Verschoben</translation>
    </message>
    <message id="745">
        <source>&amp;Deleted</source>
        <translation>&amp;Gelöscht</translation>
    </message>
    <message id="746">
        <source>F&amp;ailed</source>
        <translation>F&amp;ehlgeschlagen</translation>
    </message>
    <message id="747">
        <source>&amp;Follow the end</source>
        <translation>Dem En&amp;de folgen</translation>
    </message>
    <message id="748">
        <source>Next match</source>
        <translation>Nächster Treffer</translation>
    </message>
    <message id="749">
        <source>Previous match</source>
        <translation>Voriger Treffer</translation>
    </message>
    <message id="750">
        <source>Close the search</source>
        <translation>Suche schließen</translation>
    </message>
    <message id="751">
        <source>Continued from the beginning</source>
        <translation>Vom Anfang an weitergesucht</translation>
    </message>
    <message id="752">
        <source>Continued from the end</source>
        <translation>Vom Ende an weitergesucht</translation>
    </message>
    <message id="753">
        <source>Searching ...</source>
        <translation>Suche läuft ...</translation>
    </message>
    <message id="754">
        <source>Reading the log ...</source>
        <translation>Protokoll wird gelesen ...</translation>
    </message>
    <message id="755">
        <source>Copy whole &amp;lines</source>
        <translation>Ganze &amp;Zeilen kopieren</translation>
    </message>
    <message id="756">
        <source>The log is empty.</source>
        <translation>Das Protokoll ist leer.</translation>
    </message>
    <message id="757">
        <source>The log has no line of the chosen kinds.</source>
        <translation>Das Protokoll hat keine Zeile der gewählten Art.</translation>
    </message>
    <message id="812">
        <source>&amp;Preview ...</source>
        <translation>&amp;Vorschau ...</translation>
    </message>
    <message id="813">
        <source>Preview of %1</source>
        <translation>Vorschau auf %1</translation>
    </message>
    <message id="814">
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message id="815">
        <source>File or directory</source>
        <translation>Datei oder Verzeichnis</translation>
    </message>
    <message id="816">
        <source>Becomes</source>
        <translation>Wird zu</translation>
    </message>
    <message id="817">
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message id="818">
        <source>Why not</source>
        <translation>Warum nicht</translation>
    </message>
    <message id="819">
        <source>&amp;Save as CSV ...</source>
        <translation>Als &amp;CSV speichern ...</translation>
    </message>
    <message id="820">
        <source>&amp;Run exactly this now</source>
        <translation>Genau das &amp;jetzt ausführen</translation>
    </message>
    <message id="821">
        <source>Show only what has this text in it</source>
        <translation>Nur zeigen, was diesen Text enthält</translation>
    </message>
    <message id="822">
        <source>Tables (*.csv)</source>
        <translation>Tabellen (*.csv)</translation>
    </message>
    <message id="823">
        <source>The list could not be saved:</source>
        <translation>Die Liste konnte nicht gespeichert werden:</translation>
    </message>
    <message id="824">
        <source>The preview is not complete: %1</source>
        <translation>Die Vorschau ist nicht vollständig: %1</translation>
    </message>
    <message id="760">
        <source>Another activity has this name.</source>
        <translation>Eine andere Aktivität heißt schon so.</translation>
    </message>
    <message id="825">
        <source>deleted: %1</source>
        <translation>gelöscht: %1</translation>
    </message>
    <message id="830">
        <source>Run ended early: it was about to delete or replace more files than it may. They are as they were.</source>
        <translation>Lauf vorzeitig beendet: Er hätte mehr Dateien gelöscht oder ersetzt, als er darf. Sie sind unverändert.</translation>
    </message>
    <message id="831">
        <source>'%1' would delete %2 and replace %3 of the %4 files that it finds at the destination (%5 %).

Run anyway?</source>
        <translation>'%1' würde %2 löschen und %3 ersetzen von den %4 Dateien, die am Ziel stehen (%5 %).

Trotzdem ausführen?</translation>
    </message>
    <message id="832">
        <source>Many files would be deleted or replaced</source>
        <translation>Viele Dateien würden gelöscht oder ersetzt</translation>
    </message>
    <message id="833">
        <source>The run of '%1' is held: it would delete %2 and replace %3 of the %4 files that it finds at the destination (%5 %), more than it may unasked. "Start activity immediately" asks.</source>
        <translation>Der Lauf von '%1' wird zurückgehalten: Er würde %2 löschen und %3 ersetzen von den %4 Dateien, die am Ziel stehen (%5 %), mehr als er ungefragt darf. "Aktivität sofort starten" fragt.</translation>
    </message>
    <message id="834">
        <source>The run is held: '%1' is not on the drive that the activity was saved for: %2. The tab "Safety" of its properties tells more.</source>
        <translation>Der Lauf wird zurückgehalten: '%1' liegt nicht auf dem Laufwerk, für das die Aktivität gespeichert wurde: %2. Mehr zeigt das Register "Sicherheit" ihrer Eigenschaften.</translation>
    </message>
    <message id="835">
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message id="836">
        <source>Sa&amp;fety</source>
        <translation>Sic&amp;herheit</translation>
    </message>
    <message id="837">
        <source>Kept files</source>
        <translation>Aufbewahrte Dateien</translation>
    </message>
    <message id="838">
        <source>Keep deleted and replaced files for</source>
        <translation>Gelöschte und ersetzte Dateien aufbewahren für</translation>
    </message>
    <message id="839">
        <source>days</source>
        <translation>Tage</translation>
    </message>
    <message id="840">
        <source>not at all</source>
        <translation>gar nicht</translation>
    </message>
    <message id="841">
        <source>They go to a hidden folder of the destination instead.</source>
        <translation>Sie kommen stattdessen in einen verborgenen Ordner des Ziels.</translation>
    </message>
    <message id="842">
        <source>Question before many changes</source>
        <translation>Rückfrage vor vielen Änderungen</translation>
    </message>
    <message id="843">
        <source>Ask before a run deletes or replaces more than</source>
        <translation>Fragen, bevor ein Lauf mehr löscht oder ersetzt als</translation>
    </message>
    <message id="844">
        <source>or more percent than</source>
        <translation>oder mehr Prozent als</translation>
    </message>
    <message id="845">
        <source>files</source>
        <translation>Dateien</translation>
    </message>
    <message id="846">
        <source>no limit</source>
        <translation>keine Grenze</translation>
    </message>
    <message id="847">
        <source>Percent of the files that it finds at the destination. Without a user such a run waits.</source>
        <translation>Prozent der Dateien, die am Ziel stehen. Ohne Benutzer wartet ein solcher Lauf.</translation>
    </message>
    <message id="848">
        <source>Drives</source>
        <translation>Laufwerke</translation>
    </message>
    <message id="849">
        <source>Run only while both directories are on these drives:</source>
        <translation>Nur ausführen, solange beide Verzeichnisse auf diesen Laufwerken liegen:</translation>
    </message>
    <message id="850">
        <source>%1, there now</source>
        <translation>%1, jetzt da</translation>
    </message>
    <message id="851">
        <source>%1, not there now</source>
        <translation>%1, jetzt nicht da</translation>
    </message>
    <message id="852">
        <source>%1, but now it is on %2</source>
        <translation>%1, liegt jetzt aber auf %2</translation>
    </message>
    <message id="853">
        <source>OK takes the drives that the directories are on at that moment.</source>
        <translation>OK übernimmt die Laufwerke, auf denen die Verzeichnisse in diesem Moment liegen.</translation>
    </message>
    <message id="854">
        <source>It cannot be told which drive '%1' is on. The activity is to run on its own drives only: they must be there when it is saved.</source>
        <translation>Auf welchem Laufwerk '%1' liegt, ist nicht festzustellen. Die Aktivität soll nur auf ihren eigenen Laufwerken laufen: Beim Speichern müssen sie da sein.</translation>
    </message>
    <message id="855">
        <source>'%1' was on the drive %2. Now it is on %3.

Shall the activity run on the drive that is there now? With "No" it waits for the former one.</source>
        <translation>'%1' lag auf dem Laufwerk %2. Jetzt liegt es auf %3.

Soll die Aktivität auf dem Laufwerk laufen, das jetzt da ist? Mit "Nein" wartet sie auf das frühere.</translation>
    </message>
    <message id="856">
        <source>The preview shows what the activity would do as it was saved. Save it first: OK, then "Preview ..." in the list's menu.</source>
        <translation>Die Vorschau zeigt, was die Aktivität täte, wie sie gespeichert ist. Bitte erst speichern: OK, dann "Vorschau ..." im Menü der Liste.</translation>
    </message>
    <message id="890">
        <source>Deleted and replaced files are kept in '%1' until %2</source>
        <translation>Gelöschte und ersetzte Dateien bleiben in '%1' bis %2</translation>
    </message>
    <message id="891">
        <source>Brought back '%1'</source>
        <translation>Zurückgeholt '%1'</translation>
    </message>
    <message id="892">
        <source>Not brought back '%1': what is there now is not of that run</source>
        <translation>Nicht zurückgeholt '%1': Was jetzt dort ist, stammt nicht von jenem Lauf</translation>
    </message>
    <message id="893">
        <source>Not brought back '%1': error %2</source>
        <translation>Nicht zurückgeholt '%1': Fehler %2</translation>
    </message>
    <message id="894">
        <source>'%1' keeps no deleted or replaced files of '%2'</source>
        <translation>'%1' enthält keine gelöschten oder ersetzten Dateien von '%2'</translation>
    </message>
    <message id="895">
        <source>%1 brought back, %2 left in the trash</source>
        <translation>%1 zurückgeholt, %2 im Papierkorb geblieben</translation>
    </message>
    <message id="896">
        <source>Bring back what the last run of each named activity deleted or replaced.</source>
        <translation>Zurückholen, was der letzte Lauf jeder genannten Aktivität gelöscht oder ersetzt hat.</translation>
    </message>
    <message id="897">
        <source>With --undo: not the last run but this one, by its folder's name in the trash.</source>
        <translation>Mit --undo: nicht der letzte Lauf, sondern dieser, nach dem Namen seines Ordners im Papierkorb.</translation>
    </message>
    <message id="898">
        <source>&amp;Undo this run ...</source>
        <translation>Lauf &amp;rückgängig machen ...</translation>
    </message>
    <message id="899">
        <source>Bring back what the run at the cursor deleted and replaced</source>
        <translation>Zurückholen, was der Lauf an der Schreibmarke gelöscht und ersetzt hat</translation>
    </message>
    <message id="900">
        <source>Undo run</source>
        <translation>Lauf rückgängig machen</translation>
    </message>
    <message id="901">
        <source>Bring back what the run of %1 of '%2' deleted and replaced in '%3'? Files that were changed since then stay as they are.</source>
        <translation>Zurückholen, was der Lauf vom %1 von '%2' in '%3' gelöscht und ersetzt hat? Seitdem geänderte Dateien bleiben, wie sie sind. Ein Spiegeln löscht beim nächsten Lauf wieder, was seiner Quelle fehlt.</translation>
    </message>
    <message id="902">
        <source>This part of the log names no run whose files are kept. An activity keeps what it deletes and replaces when its safety settings say so.</source>
        <translation>Dieser Teil des Protokolls nennt keinen Lauf, dessen Dateien aufbewahrt sind. Eine Aktivität bewahrt auf, was sie löscht und ersetzt, wenn ihre Sicherheitseinstellungen das sagen.</translation>
    </message>
    <message id="903">
        <source>Nothing is kept in '%1' any more: it was brought back, or its days are over.</source>
        <translation>In '%1' ist nichts mehr aufbewahrt: Es wurde zurückgeholt oder die Tage sind vorüber.</translation>
    </message>
    <message id="860">
        <source>%1 copied, %2 moved, %3 replaced, %4 deleted, %5 left alone, %6 failed, %7 in %8 s; ended: %9</source>
        <translation>%1 kopiert, %2 verschoben, %3 ersetzt, %4 gelöscht, %5 belassen, %6 fehlgeschlagen, %7 in %8 s; Ende: %9</translation>
    </message>
    <message id="861">
        <source>Summary: %1</source>
        <translation>Zusammenfassung: %1</translation>
    </message>
    <message id="862">
        <source>done</source>
        <translation>fertig</translation>
    </message>
    <message id="863">
        <source>After a run</source>
        <translation>Nach einem Lauf</translation>
    </message>
    <message id="864">
        <source>&amp;Write a summary as the last line of each run into its log</source>
        <translation>&amp;Zusammenfassung als letzte Zeile jedes Laufs ins Protokoll schreiben</translation>
    </message>
    <message id="865">
        <source>&amp;Fill in %copied%, %failed%, %summary% and the like in mails</source>
        <translation>%copied%, %failed%, %summary% &amp;usw. in E-Mails einsetzen</translation>
    </message>
    <message id="866">
        <source>Show on the des&amp;ktop:</source>
        <translation>Auf dem Des&amp;ktop anzeigen:</translation>
    </message>
    <message id="867">
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message id="868">
        <source>Failed runs</source>
        <translation>Fehlgeschlagene Läufe</translation>
    </message>
    <message id="869">
        <source>Failed runs and runs that have done something</source>
        <translation>Fehlgeschlagene Läufe und solche, die etwas getan haben</translation>
    </message>
    <message id="870">
        <source>%1 has failed</source>
        <translation>%1 ist fehlgeschlagen</translation>
    </message>
    <message id="871">
        <source>%1 is done</source>
        <translation>%1 ist fertig</translation>
    </message>
    <message id="872">
        <source>%1 activities have failed</source>
        <translation>%1 Aktivitäten sind fehlgeschlagen</translation>
    </message>
    <message id="873">
        <source>%1 activities are done</source>
        <translation>%1 Aktivitäten sind fertig</translation>
    </message>
    <message id="874">
        <source>S&amp;tatistics ...</source>
        <translation>S&amp;tatistik ...</translation>
    </message>
    <message id="875">
        <source>Statistics of %1</source>
        <translation>Statistik von %1</translation>
    </message>
    <message id="876">
        <source>This activity has not run yet as it is now.</source>
        <translation>Diese Aktivität ist so, wie sie jetzt ist, noch nicht gelaufen.</translation>
    </message>
    <message id="877">
        <source>Files copied, moved and deleted</source>
        <translation>Kopierte, verschobene und gelöschte Dateien</translation>
    </message>
    <message id="878">
        <source>Seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message id="879">
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message id="880">
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message id="881">
        <source>%1 runs from %2 to %3, each the same: %4</source>
        <translation>%1 Läufe von %2 bis %3, jeder gleich: %4</translation>
    </message>
    <message id="882">
        <source>%1 runs since %2, %3 of them failed; %4 files, %5</source>
        <translation>%1 Läufe seit %2, davon %3 fehlgeschlagen; %4 Dateien, %5</translation>
    </message>
    <message id="883">
        <source>Runs, the newest on the right; choose one with the arrow keys</source>
        <translation>Läufe, der neueste rechts; mit den Pfeiltasten wählbar</translation>
    </message>
    <message id="884">
        <source>&amp;Bars show:</source>
        <translation>&amp;Balken zeigen:</translation>
    </message>
    <message id="1000">
        <source>'%1' was changed less than %2 seconds ago and is left for a later run.</source>
        <translation>'%1' wurde vor weniger als %2 Sekunden geändert und bleibt für einen späteren Lauf liegen.</translation>
    </message>
    <message id="1001">
        <source>%3 files were changed less than %2 seconds ago and are left for a later run, the first: '%1'</source>
        <translation>%3 Dateien wurden vor weniger als %2 Sekunden geändert und bleiben für einen späteren Lauf liegen, die erste: '%1'</translation>
    </message>
    <message id="1002">
        <source>Changes in '%1' cannot be watched: %2. The activity runs by its schedule only.</source>
        <translation>Änderungen in '%1' können nicht überwacht werden: %2. Die Aktivität läuft nur nach ihrem Zeitplan.</translation>
    </message>
    <message id="1003">
        <source>the directory is on another machine</source>
        <translation>das Verzeichnis liegt auf einem anderen Rechner</translation>
    </message>
    <message id="1004">
        <source>the system watches no more directories for this user</source>
        <translation>das System überwacht keine weiteren Verzeichnisse für diesen Benutzer</translation>
    </message>
    <message id="1005">
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message id="1006">
        <source>Also &amp;when something changes in the source directory</source>
        <translation>Auch wenn sich im Quellverzeichnis etwas ä&amp;ndert</translation>
    </message>
    <message id="1007">
        <source>O&amp;nly files untouched for:</source>
        <translation>Nur &amp;Dateien, die so lange unberührt sind:</translation>
    </message>
    <message id="1008">
        <source>no matter how long</source>
        <translation>gleich wie lange</translation>
    </message>
    <message id="1009">
        <source>A file that is still being written is left for a later run. This counts for every run of the activity.</source>
        <translation>Eine Datei, die noch geschrieben wird, bleibt für einen späteren Lauf liegen. Das gilt für jeden Lauf der Aktivität.</translation>
    </message>
    <message id="950">
        <source>Missed at %1, run late.</source>
        <translation>Um %1 verpasst, nachgeholt.</translation>
    </message>
    <message id="951">
        <source>Schedules</source>
        <translation>Zeitpläne</translation>
    </message>
    <message id="952">
        <source>&amp;Count intervals by the clock</source>
        <translation>&amp;Intervalle nach der Uhr zählen</translation>
    </message>
    <message id="953">
        <source>&amp;Run missed times late</source>
        <translation>&amp;Verpasste Zeiten nachholen</translation>
    </message>
    <message id="954">
        <source>An interval is real time: every 7 seconds is every 7 seconds, for as long as monitoring is on. Without this option the program counts in rounds, and some numbers stop after a while.</source>
        <translation>Ein Intervall ist echte Zeit: Alle 7 Sekunden heißt alle 7 Sekunden, solange die Überwachung läuft. Ohne diese Option zählt das Programm in Runden, und manche Zahlen bleiben nach einer Weile stehen.</translation>
    </message>
    <message id="955">
        <source>What was to run while the computer slept or restarted, or while another run took long, runs once, as soon as it can. What you stop yourself is not made up for. Intervals take part when they are counted by the clock.</source>
        <translation>Was laufen sollte, während der Computer schlief oder neu startete oder ein anderer Lauf lange dauerte, läuft einmal, sobald es geht. Was Sie selbst beenden, wird nicht nachgeholt. Intervalle nehmen teil, wenn sie nach der Uhr gezählt werden.</translation>
    </message>
    <message id="956">
        <source>Next run</source>
        <translation>Nächster Lauf</translation>
    </message>
    <message id="957">
        <source>never</source>
        <translation>nie</translation>
    </message>
    <message id="958">
        <source>Monitoring is off.</source>
        <translation>Die Überwachung läuft nicht.</translation>
    </message>
    <message id="959">
        <source>The activity is not ticked.</source>
        <translation>Die Aktivität ist nicht angehakt.</translation>
    </message>
    <message id="960">
        <source>It was taken out of monitoring: it has had its one run, or a directory is missing.</source>
        <translation>Sie wurde aus der Überwachung genommen: Sie hatte ihren einen Lauf, oder ein Verzeichnis fehlt.</translation>
    </message>
    <message id="961">
        <source>It has no schedule.</source>
        <translation>Sie hat keinen Zeitplan.</translation>
    </message>
    <message id="962">
        <source>Its interval is no whole number from 1 on.</source>
        <translation>Ihr Intervall ist keine ganze Zahl ab 1.</translation>
    </message>
    <message id="963">
        <source>Its time is not of the form hh:mm, for example 08:00.</source>
        <translation>Ihre Uhrzeit hat nicht die Form hh:mm, zum Beispiel 08:00.</translation>
    </message>
    <message id="964">
        <source>Its date cannot be read.</source>
        <translation>Ihr Datum ist nicht lesbar.</translation>
    </message>
    <message id="965">
        <source>Its date is in the past.</source>
        <translation>Ihr Datum liegt in der Vergangenheit.</translation>
    </message>
    <message id="966">
        <source>Counted in rounds, this interval does not come up again. "Count intervals by the clock" in the general options helps.</source>
        <translation>In Runden gezählt, kommt dieses Intervall nicht wieder an die Reihe. "Intervalle nach der Uhr zählen" in den allgemeinen Optionen hilft.</translation>
    </message>
    <message id="967">
        <source>The run will be held unless something changes: %1</source>
        <translation>Der Lauf wird zurückgehalten, wenn sich nichts ändert: %1</translation>
    </message>
    <message id="968">
        <source>Runs every second while monitoring is on.</source>
        <translation>Läuft jede Sekunde, solange die Überwachung läuft.</translation>
    </message>
    <message id="969">
        <source>Runs every %1 seconds while monitoring is on.</source>
        <translation>Läuft alle %1 Sekunden, solange die Überwachung läuft.</translation>
    </message>
    <message id="970">
        <source>Runs every minute while monitoring is on.</source>
        <translation>Läuft jede Minute, solange die Überwachung läuft.</translation>
    </message>
    <message id="971">
        <source>Runs every %1 minutes while monitoring is on.</source>
        <translation>Läuft alle %1 Minuten, solange die Überwachung läuft.</translation>
    </message>
    <message id="972">
        <source>Runs every hour while monitoring is on.</source>
        <translation>Läuft jede Stunde, solange die Überwachung läuft.</translation>
    </message>
    <message id="973">
        <source>Runs every %1 hours while monitoring is on.</source>
        <translation>Läuft alle %1 Stunden, solange die Überwachung läuft.</translation>
    </message>
    <message id="974">
        <source>Runs once, %1 after monitoring starts.</source>
        <translation>Läuft einmal, %1 nach dem Start der Überwachung.</translation>
    </message>
    <message id="975">
        <source>1 second</source>
        <translation>1 Sekunde</translation>
    </message>
    <message id="976">
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
    <message id="977">
        <source>1 minute</source>
        <translation>1 Minute</translation>
    </message>
    <message id="978">
        <source>%1 minutes</source>
        <translation>%1 Minuten</translation>
    </message>
    <message id="979">
        <source>1 hour</source>
        <translation>1 Stunde</translation>
    </message>
    <message id="980">
        <source>%1 hours</source>
        <translation>%1 Stunden</translation>
    </message>
    <message id="981">
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message id="982">
        <source>Counted in rounds, it runs first after %1, then after pauses of %2.</source>
        <translation>In Runden gezählt, läuft sie zuerst nach %1, dann in Abständen von %2.</translation>
    </message>
    <message id="983">
        <source>With this number it stops after one run, until monitoring is started again.</source>
        <translation>Mit dieser Zahl hört sie nach einem Lauf auf, bis die Überwachung neu gestartet wird.</translation>
    </message>
    <message id="984">
        <source>With this number it stops after %1 runs, until monitoring is started again.</source>
        <translation>Mit dieser Zahl hört sie nach %1 Läufen auf, bis die Überwachung neu gestartet wird.</translation>
    </message>
    <message id="985">
        <source>With this number it never runs.</source>
        <translation>Mit dieser Zahl läuft sie nie.</translation>
    </message>
    <message id="986">
        <source>"Count intervals by the clock" in the general options avoids that.</source>
        <translation>"Intervalle nach der Uhr zählen" in den allgemeinen Optionen vermeidet das.</translation>
    </message>
    <message id="987">
        <source>Runs every day at %1.</source>
        <translation>Läuft jeden Tag um %1 Uhr.</translation>
    </message>
    <message id="988">
        <source>Runs once, the next time it is %1.</source>
        <translation>Läuft einmal, wenn es das nächste Mal %1 Uhr ist.</translation>
    </message>
    <message id="989">
        <source>Runs once, on %1 at %2.</source>
        <translation>Läuft einmal, am %1 um %2 Uhr.</translation>
    </message>
    <message id="990">
        <source>%1, %2</source>
        <translation>%1, dem %2</translation>
    </message>
    <message id="991">
        <source>This moment is in the past: the activity does not run.</source>
        <translation>Dieser Zeitpunkt ist vorbei: Die Aktivität läuft nicht.</translation>
    </message>
    <message id="992">
        <source>Choose when the activity runs.</source>
        <translation>Wählen Sie, wann die Aktivität läuft.</translation>
    </message>
    <message id="993">
        <source>The date is missing.</source>
        <translation>Das Datum fehlt.</translation>
    </message>
    <message id="994">
        <source>The time of day is missing, from 00:00 to 23:59.</source>
        <translation>Die Uhrzeit fehlt, von 00:00 bis 23:59.</translation>
    </message>
    <message id="995">
        <source>en</source>
        <translation>de</translation>
    </message>
    <message id="1010">
        <source>Also soon after something has changed in the source directory.</source>
        <translation>Auch kurz nachdem sich im Quellverzeichnis etwas geändert hat.</translation>
    </message>
    <message id="904">
        <source>MailSecurity is neither 0, 1 nor 2</source>
        <translation>MailSecurity ist weder 0 noch 1 oder 2</translation>
    </message>
    <message id="905">
        <source>POP3 before SMTP does not go with encryption: it would send the password in the clear</source>
        <translation>POP3 vor SMTP ist mit Verschlüsselung nicht möglich: das Kennwort ginge unverschlüsselt hinaus</translation>
    </message>
    <message id="906">
        <source>This installation cannot encrypt: it has no TLS library</source>
        <translation>Diese Installation kann nicht verschlüsseln: ihr fehlt die TLS-Bibliothek</translation>
    </message>
    <message id="907">
        <source>The CA file %1 cannot be used: %2</source>
        <translation>Die CA-Datei %1 ist nicht benutzbar: %2</translation>
    </message>
    <message id="908">
        <source>it holds no certificate</source>
        <translation>sie enthält kein Zertifikat</translation>
    </message>
    <message id="909">
        <source>The server offers no encryption</source>
        <translation>Der Server bietet keine Verschlüsselung an</translation>
    </message>
    <message id="910">
        <source>The server sent unencrypted text where encryption begins</source>
        <translation>Der Server hat unverschlüsselten Text gesendet, wo die Verschlüsselung beginnt</translation>
    </message>
    <message id="911">
        <source>The certificate of %1 is refused: %2</source>
        <translation>Das Zertifikat von %1 wird abgelehnt: %2</translation>
    </message>
    <message id="912">
        <source>The encryption with %1 failed: %2</source>
        <translation>Die Verschlüsselung mit %1 ist gescheitert: %2</translation>
    </message>
    <message id="913">
        <source>The server offers neither of the logins PLAIN and LOGIN</source>
        <translation>Der Server bietet keine der Anmeldungen PLAIN und LOGIN an</translation>
    </message>
    <message id="914">
        <source>No password is stored for %1 at %2</source>
        <translation>Für %1 bei %2 ist kein Kennwort gespeichert</translation>
    </message>
    <message id="915">
        <source>The password file %1 cannot be read: %2</source>
        <translation>Die Kennwortdatei %1 ist nicht lesbar: %2</translation>
    </message>
    <message id="916">
        <source>The password file %1 is refused: it must belong to you and be closed to others (mode 0600)</source>
        <translation>Die Kennwortdatei %1 wird abgelehnt: sie muss Ihnen gehören und für andere gesperrt sein (Modus 0600)</translation>
    </message>
    <message id="917">
        <source>The password store does not answer; it may be locked</source>
        <translation>Der Kennwortspeicher antwortet nicht; vielleicht ist er gesperrt</translation>
    </message>
    <message id="918">
        <source>The password store refuses: %1</source>
        <translation>Der Kennwortspeicher lehnt ab: %1</translation>
    </message>
    <message id="919">
        <source>There is no password store here</source>
        <translation>Hier gibt es keinen Kennwortspeicher</translation>
    </message>
    <message id="920">
        <source>&amp;General</source>
        <translation>A&amp;llgemein</translation>
    </message>
    <message id="921">
        <source>E-&amp;mail</source>
        <translation>E-&amp;Mail</translation>
    </message>
    <message id="922">
        <source>Mail server</source>
        <translation>Mailserver</translation>
    </message>
    <message id="923">
        <source>&amp;Encryption</source>
        <translation>&amp;Verschlüsselung</translation>
    </message>
    <message id="924">
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message id="925">
        <source>STARTTLS</source>
        <translation>STARTTLS</translation>
    </message>
    <message id="926">
        <source>TLS from the start</source>
        <translation>TLS von Anfang an</translation>
    </message>
    <message id="927">
        <source>&amp;Port</source>
        <translation>&amp;Port</translation>
    </message>
    <message id="928">
        <source>Login</source>
        <translation>Anmeldung</translation>
    </message>
    <message id="929">
        <source>&amp;User name</source>
        <translation>&amp;Benutzername</translation>
    </message>
    <message id="930">
        <source>empty: no login</source>
        <translation>leer: keine Anmeldung</translation>
    </message>
    <message id="931">
        <source>Mail &amp;host</source>
        <translation>Mail-&amp;Host</translation>
    </message>
    <message id="932">
        <source>Pass&amp;word</source>
        <translation>&amp;Kennwort</translation>
    </message>
    <message id="933">
        <source>stored; empty keeps it</source>
        <translation>gespeichert; leer lässt es, wie es ist</translation>
    </message>
    <message id="934">
        <source>none stored</source>
        <translation>keines gespeichert</translation>
    </message>
    <message id="935">
        <source>&amp;Forget</source>
        <translation>Ver&amp;gessen</translation>
    </message>
    <message id="936">
        <source>Password f&amp;ile</source>
        <translation>Kennwort&amp;datei</translation>
    </message>
    <message id="937">
        <source>&amp;CA file</source>
        <translation>&amp;CA-Datei</translation>
    </message>
    <message id="938">
        <source>Select the password file</source>
        <translation>Kennwortdatei auswählen</translation>
    </message>
    <message id="939">
        <source>Select the CA file</source>
        <translation>CA-Datei auswählen</translation>
    </message>
    <message id="940">
        <source>%1. Write the password into a file that only you can read: machine HOST login USER password PASSWORD</source>
        <translation>%1. Schreiben Sie das Kennwort in eine Datei, die nur Sie lesen können: machine HOST login BENUTZER password KENNWORT</translation>
    </message>
    <message id="941">
        <source>A password belongs to a user and a host. Enter both.</source>
        <translation>Ein Kennwort gehört zu einem Benutzer und einem Host. Geben Sie beide an.</translation>
    </message>
    <message id="942">
        <source>The password was not changed.</source>
        <translation>Das Kennwort wurde nicht geändert.</translation>
    </message>
    <message id="943">
        <source>Send a &amp;test mail</source>
        <translation>Testmail &amp;senden</translation>
    </message>
    <message id="944">
        <source>Sending a test mail ...</source>
        <translation>Eine Testmail wird gesendet ...</translation>
    </message>
    <message id="945">
        <source>The server has accepted the test mail to %1.</source>
        <translation>Der Server hat die Testmail an %1 angenommen.</translation>
    </message>
    <message id="946">
        <source>The test mail was not sent.</source>
        <translation>Die Testmail wurde nicht gesendet.</translation>
    </message>
    <message id="1011">
        <source>'%1' has changed.</source>
        <translation>'%1' hat sich geändert.</translation>
    </message>
    <message id="1012">
        <source>Something may have changed in '%1'.</source>
        <translation>In '%1' kann sich etwas geändert haben.</translation>
    </message>
</context>
</TS>
