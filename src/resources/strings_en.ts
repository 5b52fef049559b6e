<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Given texts</name>
    <message id="103">
        <source>Visit Orrindale in the world wide web ...</source>
        <translation>Visit Orrindale in the world wide web ...</translation>
        <extra-name>VisitWebSite</extra-name>
    </message>
    <message id="105">
        <source>Systeminformations not available on this system at the moment!</source>
        <translation>Systeminformations not available on this system at the moment!</translation>
        <extra-name>SystemInformationMissing</extra-name>
    </message>
    <message id="107">
        <source>Error</source>
        <translation>Error</translation>
        <extra-name>Error</extra-name>
    </message>
    <message id="109">
        <source>If not used the right way, Kalvenor Pro can do harm to your computer system or cause data loss. Orrindale is not responsible for loss of data or caused damaged on your computer system. You use this software on your own risk. More you find in the license terms and conditions chapter in the manual. To use this program you MUST accept this notice and the license terms and conditions.</source>
        <translation>If not used the right way, Kalvenor Pro can do harm to your computer system or cause data loss. Orrindale is not responsible for loss of data or caused damaged on your computer system. You use this software on your own risk. More you find in the license terms and conditions chapter in the manual. To use this program you MUST accept this notice and the license terms and conditions.</translation>
        <extra-name>LegalNotice</extra-name>
    </message>
    <message id="110">
        <source>ATTENTION:</source>
        <translation>ATTENTION:</translation>
        <extra-name>Attention</extra-name>
    </message>
    <message id="111">
        <source>Accept</source>
        <translation>Accept</translation>
        <extra-name>Accept</extra-name>
    </message>
    <message id="112">
        <source>Decline</source>
        <translation>Decline</translation>
        <extra-name>Decline</extra-name>
    </message>
    <message id="117">
        <source>General options</source>
        <translation>General options</translation>
        <extra-name>GeneralOptions</extra-name>
    </message>
    <message id="118">
        <source>General settings</source>
        <translation>General settings</translation>
        <extra-name>GeneralSettings</extra-name>
    </message>
    <message id="119">
        <source>Start Kalvenor mimimized with Windows startup</source>
        <translation>Start Kalvenor mimimized with Windows startup</translation>
        <extra-name>StartWithSession</extra-name>
    </message>
    <message id="120">
        <source>After minimizing show in tray notification area</source>
        <translation>After minimizing show in tray notification area</translation>
        <extra-name>MinimizeToTray</extra-name>
    </message>
    <message id="121">
        <source>Shutdown computer when finished last action</source>
        <translation>Shutdown computer when finished last action</translation>
        <extra-name>ShutdownWhenFinished</extra-name>
    </message>
    <message id="122">
        <source>After start immediately start monitoring</source>
        <translation>After start immediately start monitoring</translation>
        <extra-name>MonitorAfterStart</extra-name>
    </message>
    <message id="123">
        <source>Refresh logfile view every 10 seconds</source>
        <translation>Refresh logfile view every 10 seconds</translation>
        <extra-name>RefreshLogView</extra-name>
    </message>
    <message id="124">
        <source>Logfile for Kalvenor</source>
        <translation>Logfile for Kalvenor</translation>
        <extra-name>ApplicationLog</extra-name>
    </message>
    <message id="125">
        <source>&amp;Save</source>
        <translation>&amp;Save</translation>
        <extra-name>Save</extra-name>
    </message>
    <message id="126">
        <source>C&amp;ancel</source>
        <translation>C&amp;ancel</translation>
        <extra-name>CancelOptions</extra-name>
    </message>
    <message id="127">
        <source>Help</source>
        <translation>Help</translation>
        <extra-name>Help</extra-name>
    </message>
    <message id="128">
        <source>Select file</source>
        <translation>Select file</translation>
        <extra-name>SelectFile</extra-name>
    </message>
    <message id="129">
        <source>Please select logging file</source>
        <translation>Please select logging file</translation>
        <extra-name>SelectLogFile</extra-name>
    </message>
    <message id="130">
        <source>Log file</source>
        <translation>Log file</translation>
        <extra-name>LogFile</extra-name>
    </message>
    <message id="131">
        <source>All files</source>
        <translation>All files</translation>
        <extra-name>AllFiles</extra-name>
    </message>
    <message id="132">
        <source>The selected directory &apos;</source>
        <translation>The selected directory &apos;</translation>
        <extra-name>SelectedDirectory</extra-name>
    </message>
    <message id="133">
        <source>&apos; doesn&apos;t exist.</source>
        <translation>&apos; doesn&apos;t exist.</translation>
        <extra-name>DoesNotExist</extra-name>
    </message>
    <message id="134">
        <source>Please select a valid directory.</source>
        <translation>Please select a valid directory.</translation>
        <extra-name>SelectValidDirectory</extra-name>
    </message>
    <message id="135">
        <source>Directory not found</source>
        <translation>Directory not found</translation>
        <extra-name>DirectoryNotFoundTitle</extra-name>
    </message>
    <message id="136">
        <source>The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!</source>
        <translation>The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!</translation>
        <extra-name>HelpNeedsBrowser</extra-name>
    </message>
    <message id="137">
        <source>Please use the help file located in the Kalvenor startmenu entry.</source>
        <translation>Please use the help file located in the Kalvenor startmenu entry.</translation>
        <extra-name>HelpFromStartMenu</extra-name>
    </message>
    <message id="138">
        <source>Help can not be opened</source>
        <translation>Help can not be opened</translation>
        <extra-name>HelpTitle</extra-name>
    </message>
    <message id="139">
        <source>&amp;File</source>
        <translation>&amp;File</translation>
        <extra-name>FileMenu</extra-name>
    </message>
    <message id="140">
        <source>Import action file</source>
        <translation>Import action file</translation>
        <extra-name>Import</extra-name>
    </message>
    <message id="141">
        <source>Export action file</source>
        <translation>Export action file</translation>
        <extra-name>Export</extra-name>
    </message>
    <message id="142">
        <source>Start monitoring</source>
        <translation>Start monitoring</translation>
        <extra-name>StartMonitoring</extra-name>
    </message>
    <message id="143">
        <source>Delete all activities</source>
        <translation>Delete all activities</translation>
        <extra-name>DeleteAll</extra-name>
    </message>
    <message id="144">
        <source>Settings</source>
        <translation>Settings</translation>
        <extra-name>Settings</extra-name>
    </message>
    <message id="145">
        <source>Synchronize system clock</source>
        <translation>Synchronize system clock</translation>
        <extra-name>SynchronizeClock</extra-name>
    </message>
    <message id="146">
        <source>Show Kalvenor logfile</source>
        <translation>Show Kalvenor logfile</translation>
        <extra-name>ShowApplicationLog</extra-name>
    </message>
    <message id="147">
        <source>Delete Kalvenor logfile</source>
        <translation>Delete Kalvenor logfile</translation>
        <extra-name>DeleteApplicationLog</extra-name>
    </message>
    <message id="148">
        <source>Exit</source>
        <translation>Exit</translation>
        <extra-name>Exit</extra-name>
    </message>
    <message id="150">
        <source>About</source>
        <translation>About</translation>
        <extra-name>About</extra-name>
    </message>
    <message id="151">
        <source>Add activity</source>
        <translation>Add activity</translation>
        <extra-name>AddActivity</extra-name>
    </message>
    <message id="152">
        <source>Delete activity</source>
        <translation>Delete activity</translation>
        <extra-name>DeleteActivity</extra-name>
    </message>
    <message id="153">
        <source>Select all</source>
        <translation>Select all</translation>
        <extra-name>SelectAll</extra-name>
    </message>
    <message id="154">
        <source>Deselect all</source>
        <translation>Deselect all</translation>
        <extra-name>DeselectAll</extra-name>
    </message>
    <message id="155">
        <source>Show logfile</source>
        <translation>Show logfile</translation>
        <extra-name>ShowLog</extra-name>
    </message>
    <message id="156">
        <source>Delete logfile</source>
        <translation>Delete logfile</translation>
        <extra-name>DeleteLog</extra-name>
    </message>
    <message id="157">
        <source>Start activity immediately</source>
        <translation>Start activity immediately</translation>
        <extra-name>StartNow</extra-name>
    </message>
    <message id="158">
        <source>Properties</source>
        <translation>Properties</translation>
        <extra-name>Properties</extra-name>
    </message>
    <message id="159">
        <source>The monitoring is still activ. Exit anyway?</source>
        <translation>The monitoring is still activ. Exit anyway?</translation>
        <extra-name>ExitWhileMonitoring</extra-name>
    </message>
    <message id="160">
        <source>Exit program</source>
        <translation>Exit program</translation>
        <extra-name>ExitTitle</extra-name>
    </message>
    <message id="162">
        <source>Select file to export</source>
        <translation>Select file to export</translation>
        <extra-name>ExportTitle</extra-name>
    </message>
    <message id="163">
        <source>Kalvenor action file</source>
        <translation>Kalvenor action file</translation>
        <extra-name>ActionFileType</extra-name>
    </message>
    <message id="164">
        <source>Exporting &apos;</source>
        <translation>Exporting &apos;</translation>
        <extra-name>Exporting</extra-name>
    </message>
    <message id="165">
        <source>While exporting another action file you will lose all current activities.</source>
        <translation>While exporting another action file you will lose all current activities.</translation>
        <extra-name>ExportReplaces</extra-name>
    </message>
    <message id="166">
        <source>Do you really want to proceed?</source>
        <translation>Do you really want to proceed?</translation>
        <extra-name>ReallyProceed</extra-name>
    </message>
    <message id="167">
        <source>Import action file</source>
        <translation>Import action file</translation>
        <extra-name>ImportQuestionTitle</extra-name>
    </message>
    <message id="168">
        <source>Select file to import</source>
        <translation>Select file to import</translation>
        <extra-name>ImportTitle</extra-name>
    </message>
    <message id="169">
        <source>Importing &apos;</source>
        <translation>Importing &apos;</translation>
        <extra-name>Importing</extra-name>
    </message>
    <message id="172">
        <source>Running instance of Kalvenor Pro found!</source>
        <translation>Running instance of Kalvenor Pro found!</translation>
        <extra-name>InstanceFound</extra-name>
    </message>
    <message id="173">
        <source>It&apos;s not possible to run multiple instances of Kalvenor Pro at the same time.</source>
        <translation>It&apos;s not possible to run multiple instances of Kalvenor Pro at the same time.</translation>
        <extra-name>OneInstanceOnly</extra-name>
    </message>
    <message id="174">
        <source>File &apos;</source>
        <translation>File &apos;</translation>
        <extra-name>FileQuote</extra-name>
    </message>
    <message id="175">
        <source>&apos; could not be started with Kalvenor.</source>
        <translation>&apos; could not be started with Kalvenor.</translation>
        <extra-name>CouldNotBeStarted</extra-name>
    </message>
    <message id="176">
        <source>Invalid file</source>
        <translation>Invalid file</translation>
        <extra-name>InvalidFile</extra-name>
    </message>
    <message id="179">
        <source>Name of activity</source>
        <translation>Name of activity</translation>
        <extra-name>NameColumn</extra-name>
    </message>
    <message id="180">
        <source>Source directory</source>
        <translation>Source directory</translation>
        <extra-name>SourceColumn</extra-name>
    </message>
    <message id="181">
        <source>Destination directory</source>
        <translation>Destination directory</translation>
        <extra-name>DestinationColumn</extra-name>
    </message>
    <message id="182">
        <source>Action</source>
        <translation>Action</translation>
        <extra-name>ActionColumn</extra-name>
    </message>
    <message id="183">
        <source>Initializing, please wait ...</source>
        <translation>Initializing, please wait ...</translation>
        <extra-name>Initializing</extra-name>
    </message>
    <message id="195">
        <source>Should the activity started at once?</source>
        <translation>Should the activity started at once?</translation>
        <extra-name>StartNowQuestion</extra-name>
    </message>
    <message id="196">
        <source>Start activity</source>
        <translation>Start activity</translation>
        <extra-name>StartNowTitle</extra-name>
    </message>
    <message id="197">
        <source>Monitoring in process ...</source>
        <translation>Monitoring in process ...</translation>
        <extra-name>MonitoringInProcess</extra-name>
    </message>
    <message id="198">
        <source>idle</source>
        <translation>idle</translation>
        <extra-name>Idle</extra-name>
    </message>
    <message id="199">
        <source>For this feature you must be connected directly to the internet.</source>
        <translation>For this feature you must be connected directly to the internet.</translation>
        <extra-name>NeedsConnection</extra-name>
    </message>
    <message id="200">
        <source>Please establish an connection an try again.</source>
        <translation>Please establish an connection an try again.</translation>
        <extra-name>EstablishConnection</extra-name>
    </message>
    <message id="201">
        <source>Can&apos;t find an active DFUE connection</source>
        <translation>Can&apos;t find an active DFUE connection</translation>
        <extra-name>NoConnectionTitle</extra-name>
    </message>
    <message id="202">
        <source>Really delete the Kalvenor logfile?</source>
        <translation>Really delete the Kalvenor logfile?</translation>
        <extra-name>DeleteApplicationLogQuestion</extra-name>
    </message>
    <message id="203">
        <source>Delete Kalvenor logfile</source>
        <translation>Delete Kalvenor logfile</translation>
        <extra-name>DeleteApplicationLogTitle</extra-name>
    </message>
    <message id="204">
        <source>Should the logfile &apos;</source>
        <translation>Should the logfile &apos;</translation>
        <extra-name>DeleteLogQuestion</extra-name>
    </message>
    <message id="205">
        <source>&apos; really be deleted?</source>
        <translation>&apos; really be deleted?</translation>
        <extra-name>ReallyBeDeleted</extra-name>
    </message>
    <message id="206">
        <source>Delete activity logfile</source>
        <translation>Delete activity logfile</translation>
        <extra-name>DeleteLogTitle</extra-name>
    </message>
    <message id="207">
        <source>There is no logfile for this activity that can be deleted.</source>
        <translation>There is no logfile for this activity that can be deleted.</translation>
        <extra-name>NoLogToDelete</extra-name>
    </message>
    <message id="208">
        <source>No logfile found</source>
        <translation>No logfile found</translation>
        <extra-name>NoLogTitle</extra-name>
    </message>
    <message id="209">
        <source>No logfile found for Kalvenor Pro.</source>
        <translation>No logfile found for Kalvenor Pro.</translation>
        <extra-name>NoApplicationLog</extra-name>
    </message>
    <message id="210">
        <source>No logfile found for this activity.</source>
        <translation>No logfile found for this activity.</translation>
        <extra-name>NoActivityLog</extra-name>
    </message>
    <message id="211">
        <source>Should the activity &apos;</source>
        <translation>Should the activity &apos;</translation>
        <extra-name>DeleteActivityQuestion</extra-name>
    </message>
    <message id="212">
        <source>Delete activity</source>
        <translation>Delete activity</translation>
        <extra-name>DeleteActivityTitle</extra-name>
    </message>
    <message id="215">
        <source>You must add at least one activity to start monitoring.</source>
        <translation>You must add at least one activity to start monitoring.</translation>
        <extra-name>NothingToMonitor</extra-name>
    </message>
    <message id="216">
        <source>Start monitoring</source>
        <translation>Start monitoring</translation>
        <extra-name>StartMonitoringTitle</extra-name>
    </message>
    <message id="217">
        <source>You have not selected a directory to monitor. You can&apos;t start monitoring without a valid directory.</source>
        <translation>You have not selected a directory to monitor. You can&apos;t start monitoring without a valid directory.</translation>
        <extra-name>NoDirectoryToMonitor</extra-name>
    </message>
    <message id="218">
        <source>Monitoring in progress for this activities: &apos;</source>
        <translation>Monitoring in progress for this activities: &apos;</translation>
        <extra-name>MonitoringInProgress</extra-name>
    </message>
    <message id="219">
        <source>Stop monitoring</source>
        <translation>Stop monitoring</translation>
        <extra-name>StopMonitoring</extra-name>
    </message>
    <message id="220">
        <source>Start monitoring ...</source>
        <translation>Start monitoring ...</translation>
        <extra-name>MonitoringStarted</extra-name>
    </message>
    <message id="221">
        <source>Monitoring finished! </source>
        <translation>Monitoring finished! </translation>
        <extra-name>MonitoringFinished</extra-name>
    </message>
    <message id="222">
        <source>Activ ...</source>
        <translation>Activ ...</translation>
        <extra-name>Active</extra-name>
    </message>
    <message id="223">
        <source>Computer after last activity &apos;</source>
        <translation>Computer after last activity &apos;</translation>
        <extra-name>ShutdownAfterActivity</extra-name>
    </message>
    <message id="224">
        <source>&apos; shutted down.</source>
        <translation>&apos; shutted down.</translation>
        <extra-name>ShutDown</extra-name>
    </message>
    <message id="225">
        <source>All activities idle, finished monitoring.</source>
        <translation>All activities idle, finished monitoring.</translation>
        <extra-name>AllIdle</extra-name>
    </message>
    <message id="226">
        <source>Monitoring &apos;</source>
        <translation>Monitoring &apos;</translation>
        <extra-name>MonitoringQuote</extra-name>
    </message>
    <message id="227">
        <source>stopped.</source>
        <translation>stopped.</translation>
        <extra-name>Stopped</extra-name>
    </message>
    <message id="228">
        <source>Stopped activity after once-only execution interval.</source>
        <translation>Stopped activity after once-only execution interval.</translation>
        <extra-name>StoppedAfterOnce</extra-name>
    </message>
    <message id="229">
        <source>Change detected - File/directory:</source>
        <translation>Change detected - File/directory:</translation>
        <extra-name>ChangeInPath</extra-name>
    </message>
    <message id="230">
        <source>New/changed file/directory &apos;</source>
        <translation>New/changed file/directory &apos;</translation>
        <extra-name>NewOrChanged</extra-name>
    </message>
    <message id="231">
        <source>&apos; found.</source>
        <translation>&apos; found.</translation>
        <extra-name>Found</extra-name>
    </message>
    <message id="232">
        <source>Change detected</source>
        <translation>Change detected</translation>
        <extra-name>ChangeDetected</extra-name>
    </message>
    <message id="233">
        <source>Executing file: &apos;</source>
        <translation>Executing file: &apos;</translation>
        <extra-name>ExecutingFile</extra-name>
    </message>
    <message id="234">
        <source>File &apos;</source>
        <translation>File &apos;</translation>
        <extra-name>FileOpeningQuote</extra-name>
    </message>
    <message id="235">
        <source>&apos; could not executed ...</source>
        <translation>&apos; could not executed ...</translation>
        <extra-name>CouldNotExecute</extra-name>
    </message>
    <message id="236">
        <source>Checking starts ...</source>
        <translation>Checking starts ...</translation>
        <extra-name>CheckingStarts</extra-name>
    </message>
    <message id="237">
        <source>Directory &apos;</source>
        <translation>Directory &apos;</translation>
        <extra-name>Directory</extra-name>
    </message>
    <message id="238">
        <source>&apos; not found, monitoring stopped automatically.</source>
        <translation>&apos; not found, monitoring stopped automatically.</translation>
        <extra-name>NotFoundStopped</extra-name>
    </message>
    <message id="239">
        <source>&apos; not found, monitoring &apos;</source>
        <translation>&apos; not found, monitoring &apos;</translation>
        <extra-name>NotFoundMonitoring</extra-name>
    </message>
    <message id="240">
        <source>&apos; automatically stopped.</source>
        <translation>&apos; automatically stopped.</translation>
        <extra-name>AutomaticallyStopped</extra-name>
    </message>
    <message id="241">
        <source>E-Mail send to &apos;</source>
        <translation>E-Mail send to &apos;</translation>
        <extra-name>MailSendTo</extra-name>
    </message>
    <message id="242">
        <source>Checking finished.</source>
        <translation>Checking finished.</translation>
        <extra-name>CheckingFinished</extra-name>
    </message>
    <message id="243">
        <source>Deleting directory &apos;</source>
        <translation>Deleting directory &apos;</translation>
        <extra-name>DeletingDirectory</extra-name>
    </message>
    <message id="244">
        <source>- No action selected!</source>
        <translation>- No action selected!</translation>
        <extra-name>NoActionSelected</extra-name>
    </message>
    <message id="245">
        <source>Copying directory &apos;</source>
        <translation>Copying directory &apos;</translation>
        <extra-name>CopyingDirectory</extra-name>
    </message>
    <message id="246">
        <source>&apos; to &apos;</source>
        <translation>&apos; to &apos;</translation>
        <extra-name>To</extra-name>
    </message>
    <message id="247">
        <source>Deleting file &apos;</source>
        <translation>Deleting file &apos;</translation>
        <extra-name>DeletingFile</extra-name>
    </message>
    <message id="248">
        <source>Should the file &apos;</source>
        <translation>Should the file &apos;</translation>
        <extra-name>ShouldFile</extra-name>
    </message>
    <message id="249">
        <source>replace the file located in the destination directory &apos;</source>
        <translation>replace the file located in the destination directory &apos;</translation>
        <extra-name>ReplaceFile</extra-name>
    </message>
    <message id="250">
        <source>?</source>
        <translation>?</translation>
        <extra-name>QuestionMark</extra-name>
    </message>
    <message id="251">
        <source>File already exists</source>
        <translation>File already exists</translation>
        <extra-name>FileExistsTitle</extra-name>
    </message>
    <message id="252">
        <source>Move &apos;</source>
        <translation>Move &apos;</translation>
        <extra-name>Move</extra-name>
    </message>
    <message id="253">
        <source>Copy &apos;</source>
        <translation>Copy &apos;</translation>
        <extra-name>Copy</extra-name>
    </message>
    <message id="254">
        <source>and overwrite with newer file ...</source>
        <translation>and overwrite with newer file ...</translation>
        <extra-name>OverwriteNewer</extra-name>
    </message>
    <message id="255">
        <source>Overwrite from file &apos;</source>
        <translation>Overwrite from file &apos;</translation>
        <extra-name>OverwriteFrom</extra-name>
    </message>
    <message id="256">
        <source>&apos; declined by user.</source>
        <translation>&apos; declined by user.</translation>
        <extra-name>DeclinedByUser</extra-name>
    </message>
    <message id="257">
        <source>Move file &apos;</source>
        <translation>Move file &apos;</translation>
        <extra-name>MoveFile</extra-name>
    </message>
    <message id="258">
        <source>Copy file &apos;</source>
        <translation>Copy file &apos;</translation>
        <extra-name>CopyFile</extra-name>
    </message>
    <message id="259">
        <source>to</source>
        <translation>to</translation>
        <extra-name>ToWord</extra-name>
    </message>
    <message id="260">
        <source>Overwrite &apos;</source>
        <translation>Overwrite &apos;</translation>
        <extra-name>Overwrite</extra-name>
    </message>
    <message id="261">
        <source>with &apos;</source>
        <translation>with &apos;</translation>
        <extra-name>With</extra-name>
    </message>
    <message id="262">
        <source>Move and overwrite with newer file &apos;</source>
        <translation>Move and overwrite with newer file &apos;</translation>
        <extra-name>MoveNewer</extra-name>
    </message>
    <message id="263">
        <source>Copy and overwrite with newer file &apos;</source>
        <translation>Copy and overwrite with newer file &apos;</translation>
        <extra-name>CopyNewer</extra-name>
    </message>
    <message id="264">
        <source>older/equal as/to file</source>
        <translation>older/equal as/to file</translation>
        <extra-name>OlderOrEqual</extra-name>
    </message>
    <message id="265">
        <source>Copy/move from &apos;</source>
        <translation>Copy/move from &apos;</translation>
        <extra-name>TransferFrom</extra-name>
    </message>
    <message id="266">
        <source>&apos; failed, file is locked from another program!</source>
        <translation>&apos; failed, file is locked from another program!</translation>
        <extra-name>FailedLocked</extra-name>
    </message>
    <message id="267">
        <source>&apos; failed - Error</source>
        <translation>&apos; failed - Error</translation>
        <extra-name>FailedError</extra-name>
    </message>
    <message id="268">
        <source>Activity &apos;</source>
        <translation>Activity &apos;</translation>
        <extra-name>ActivityQuote</extra-name>
    </message>
    <message id="269">
        <source>Clear whole list with all monitoring activities?</source>
        <translation>Clear whole list with all monitoring activities?</translation>
        <extra-name>ClearAllQuestion</extra-name>
    </message>
    <message id="270">
        <source>Clear all activities</source>
        <translation>Clear all activities</translation>
        <extra-name>ClearAllTitle</extra-name>
    </message>
    <message id="271">
        <source>Default list successfully restored!</source>
        <translation>Default list successfully restored!</translation>
        <extra-name>DefaultListRestored</extra-name>
    </message>
    <message id="272">
        <source>Last accessed:</source>
        <translation>Last accessed:</translation>
        <extra-name>LastAccessed</extra-name>
    </message>
    <message id="273">
        <source>Date and time successfully synchronized!</source>
        <translation>Date and time successfully synchronized!</translation>
        <extra-name>ClockSynchronized</extra-name>
    </message>
    <message id="274">
        <source>Synchronization of date &amp; time</source>
        <translation>Synchronization of date &amp; time</translation>
        <extra-name>ClockTitle</extra-name>
    </message>
    <message id="275">
        <source>E-Mail Service not available (needs Outlook 97 or newer)</source>
        <translation>E-Mail Service not available (needs Outlook 97 or newer)</translation>
        <extra-name>MailServiceMissing</extra-name>
    </message>
    <message id="281">
        <source>The selected source directory &apos;</source>
        <translation>The selected source directory &apos;</translation>
        <extra-name>SelectedSource</extra-name>
    </message>
    <message id="282">
        <source>The selected destination directory &apos;</source>
        <translation>The selected destination directory &apos;</translation>
        <extra-name>SelectedDestination</extra-name>
    </message>
    <message id="283">
        <source>The name of an activity should not start with a number.</source>
        <translation>The name of an activity should not start with a number.</translation>
        <extra-name>NameStartsWithNumber</extra-name>
    </message>
    <message id="284">
        <source>Name of the activity</source>
        <translation>Name of the activity</translation>
        <extra-name>NameTitle</extra-name>
    </message>
    <message id="285">
        <source>You must enter a name for the activity.</source>
        <translation>You must enter a name for the activity.</translation>
        <extra-name>NameMissing</extra-name>
    </message>
    <message id="286">
        <source>The time was entered in an invalid format. Please change to this format &apos;hh:mm&apos;.</source>
        <translation>The time was entered in an invalid format. Please change to this format &apos;hh:mm&apos;.</translation>
        <extra-name>TimeInvalid</extra-name>
    </message>
    <message id="287">
        <source>Format of time invalid</source>
        <translation>Format of time invalid</translation>
        <extra-name>TimeInvalidTitle</extra-name>
    </message>
    <message id="288">
        <source>Please enter file extensions without a point as postfix, e.g. exe;zip;dll.</source>
        <translation>Please enter file extensions without a point as postfix, e.g. exe;zip;dll.</translation>
        <extra-name>ExtensionsWithPoint</extra-name>
    </message>
    <message id="289">
        <source>File extensions</source>
        <translation>File extensions</translation>
        <extra-name>ExtensionsTitle</extra-name>
    </message>
    <message id="290">
        <source>Date invalid</source>
        <translation>Date invalid</translation>
        <extra-name>DateTitle</extra-name>
    </message>
    <message id="291">
        <source>The entered date is invalid.</source>
        <translation>The entered date is invalid.</translation>
        <extra-name>DateInvalid</extra-name>
    </message>
    <message id="292">
        <source>The entered date is in the past.</source>
        <translation>The entered date is in the past.</translation>
        <extra-name>DateInPast</extra-name>
    </message>
    <message id="293">
        <source>The entered time is in the past.</source>
        <translation>The entered time is in the past.</translation>
        <extra-name>TimeInPast</extra-name>
    </message>
    <message id="294">
        <source>You have selected the windows directory for monitoring.</source>
        <translation>You have selected the windows directory for monitoring.</translation>
        <extra-name>WindowsDirectory</extra-name>
    </message>
    <message id="295">
        <source>May your windows installation could be destroyed!</source>
        <translation>May your windows installation could be destroyed!</translation>
        <extra-name>MayDestroyWindows</extra-name>
    </message>
    <message id="296">
        <source>Do you really want to proceed?</source>
        <translation>Do you really want to proceed?</translation>
        <extra-name>ReallyProceedEditor</extra-name>
    </message>
    <message id="297">
        <source>Windows directory selected</source>
        <translation>Windows directory selected</translation>
        <extra-name>WindowsDirectoryTitle</extra-name>
    </message>
    <message id="298">
        <source>You have selected the windows system directory for monitoring.</source>
        <translation>You have selected the windows system directory for monitoring.</translation>
        <extra-name>SystemDirectory</extra-name>
    </message>
    <message id="299">
        <source>Windows system directory selected</source>
        <translation>Windows system directory selected</translation>
        <extra-name>SystemDirectoryTitle</extra-name>
    </message>
    <message id="300">
        <source>You have selected the windows installation root directory.</source>
        <translation>You have selected the windows installation root directory.</translation>
        <extra-name>RootDirectory</extra-name>
    </message>
    <message id="301">
        <source>Windows root directory selected</source>
        <translation>Windows root directory selected</translation>
        <extra-name>RootDirectoryTitle</extra-name>
    </message>
    <message id="302">
        <source>To send E-Mail you must select an recipient.</source>
        <translation>To send E-Mail you must select an recipient.</translation>
        <extra-name>RecipientMissing</extra-name>
    </message>
    <message id="303">
        <source>E-Mail adress invalid</source>
        <translation>E-Mail adress invalid</translation>
        <extra-name>AddressTitle</extra-name>
    </message>
    <message id="304">
        <source>You want to use the E-Mail notification but have not entered an subject.</source>
        <translation>You want to use the E-Mail notification but have not entered an subject.</translation>
        <extra-name>SubjectMissing</extra-name>
    </message>
    <message id="305">
        <source>No subject entered</source>
        <translation>No subject entered</translation>
        <extra-name>SubjectTitle</extra-name>
    </message>
    <message id="308">
        <source>Could not read the Outlook contacts.</source>
        <translation>Could not read the Outlook contacts.</translation>
        <extra-name>ContactsUnreadable</extra-name>
    </message>
    <message id="309">
        <source>You can enter an recipient manual in the textfield.</source>
        <translation>You can enter an recipient manual in the textfield.</translation>
        <extra-name>EnterRecipient</extra-name>
    </message>
    <message id="310">
        <source>Outlook contacts</source>
        <translation>Outlook contacts</translation>
        <extra-name>ContactsTitle</extra-name>
    </message>
    <message id="317">
        <source>To save the activity with new name select &apos;Yes&apos;, for creating a new activity press &quot;No&apos;:</source>
        <translation>To save the activity with new name select &apos;Yes&apos;, for creating a new activity press &quot;No&apos;:</translation>
        <extra-name>RenameQuestion</extra-name>
    </message>
    <message id="318">
        <source>Save activity</source>
        <translation>Save activity</translation>
        <extra-name>RenameTitle</extra-name>
    </message>
    <message id="326">
        <source>incl. last accessed info</source>
        <translation>incl. last accessed info</translation>
        <extra-name>AttachAction</extra-name>
    </message>
    <message id="328">
        <source>incl. file from last access</source>
        <translation>incl. file from last access</translation>
        <extra-name>SendLastFile</extra-name>
    </message>
    <message id="336">
        <source>Interval settings</source>
        <translation>Interval settings</translation>
        <extra-name>IntervalSettings</extra-name>
    </message>
    <message id="337">
        <source>Seconds</source>
        <translation>Seconds</translation>
        <extra-name>Seconds</extra-name>
    </message>
    <message id="338">
        <source>Minutes</source>
        <translation>Minutes</translation>
        <extra-name>Minutes</extra-name>
    </message>
    <message id="339">
        <source>Hours</source>
        <translation>Hours</translation>
        <extra-name>Hours</extra-name>
    </message>
    <message id="340">
        <source>Interval only once-time exectution, then stop activity</source>
        <translation>Interval only once-time exectution, then stop activity</translation>
        <extra-name>OnceOnly</extra-name>
    </message>
    <message id="341">
        <source>Comment to activity</source>
        <translation>Comment to activity</translation>
        <extra-name>Comment</extra-name>
    </message>
    <message id="342">
        <source>Select date</source>
        <translation>Select date</translation>
        <extra-name>SelectDate</extra-name>
    </message>
    <message id="343">
        <source>Daily</source>
        <translation>Daily</translation>
        <extra-name>Daily</extra-name>
    </message>
    <message id="344">
        <source>Date</source>
        <translation>Date</translation>
        <extra-name>Date</extra-name>
    </message>
    <message id="345">
        <source>Time</source>
        <translation>Time</translation>
        <extra-name>Time</extra-name>
    </message>
    <message id="347">
        <source>Copy files</source>
        <translation>Copy files</translation>
        <extra-name>CopyFiles</extra-name>
    </message>
    <message id="348">
        <source>Move files</source>
        <translation>Move files</translation>
        <extra-name>MoveFiles</extra-name>
    </message>
    <message id="349">
        <source>Mirror directory</source>
        <translation>Mirror directory</translation>
        <extra-name>MirrorDirectory</extra-name>
    </message>
    <message id="350">
        <source>No action</source>
        <translation>No action</translation>
        <extra-name>NoAction</extra-name>
    </message>
    <message id="351">
        <source>Overwrite files without asking</source>
        <translation>Overwrite files without asking</translation>
        <extra-name>OverwriteUnasked</extra-name>
    </message>
    <message id="352">
        <source>Observe only newer files</source>
        <translation>Observe only newer files</translation>
        <extra-name>OnlyNewer</extra-name>
    </message>
    <message id="353">
        <source>Message/PopUp by changes</source>
        <translation>Message/PopUp by changes</translation>
        <extra-name>AlertOnChange</extra-name>
    </message>
    <message id="354">
        <source>incl. subfolders</source>
        <translation>incl. subfolders</translation>
        <extra-name>IncludeSubfolders</extra-name>
    </message>
    <message id="355">
        <source>Execute by changes:</source>
        <translation>Execute by changes:</translation>
        <extra-name>ExecuteOnChange</extra-name>
    </message>
    <message id="356">
        <source>Logfile of activity:</source>
        <translation>Logfile of activity:</translation>
        <extra-name>LogOfActivity</extra-name>
    </message>
    <message id="357">
        <source>Select programs/scripts</source>
        <translation>Select programs/scripts</translation>
        <extra-name>SelectProgram</extra-name>
    </message>
    <message id="358">
        <source>Select logfile</source>
        <translation>Select logfile</translation>
        <extra-name>SelectActivityLog</extra-name>
    </message>
    <message id="360">
        <source>Observed file types:</source>
        <translation>Observed file types:</translation>
        <extra-name>ObservedTypes</extra-name>
    </message>
    <message id="361">
        <source>All</source>
        <translation>All</translation>
        <extra-name>AllTypes</extra-name>
    </message>
    <message id="362">
        <source>Only this:</source>
        <translation>Only this:</translation>
        <extra-name>OnlyThese</extra-name>
    </message>
    <message id="364">
        <source>Use SMTP host for mail sending:</source>
        <translation>Use SMTP host for mail sending:</translation>
        <extra-name>UseSmtpHost</extra-name>
    </message>
    <message id="366">
        <source>To send E-Mail you must select an sender.</source>
        <translation>To send E-Mail you must select an sender.</translation>
        <extra-name>SenderMissing</extra-name>
    </message>
    <message id="368">
        <source>incl. Computername in E-Mail message</source>
        <translation>incl. Computername in E-Mail message</translation>
        <extra-name>AttachComputerName</extra-name>
    </message>
    <message id="369">
        <source>from system (name)</source>
        <translation>from system (name)</translation>
        <extra-name>FromSystem</extra-name>
    </message>
    <message id="370">
        <source>Please check the E-Mail address.</source>
        <translation>Please check the E-Mail address.</translation>
        <extra-name>CheckAddress</extra-name>
    </message>
    <message id="371">
        <source>Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will not be deleted but get the extension .OLD)?</source>
        <translation>Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will not be deleted but get the extension .OLD)?</translation>
        <extra-name>FileCorrupted</extra-name>
    </message>
    <message id="372">
        <source>The current file cannot be imported again!</source>
        <translation>The current file cannot be imported again!</translation>
        <extra-name>CannotImportCurrent</extra-name>
    </message>
    <message id="373">
        <source>The file is in use and can&apos;t be overwritten.</source>
        <translation>The file is in use and can&apos;t be overwritten.</translation>
        <extra-name>FileInUse</extra-name>
    </message>
    <message id="374">
        <source>Text not found!</source>
        <translation>Text not found!</translation>
        <extra-name>SearchNotFound</extra-name>
    </message>
    <message id="375">
        <source>Search</source>
        <translation>Search</translation>
        <extra-name>Search</extra-name>
    </message>
    <message id="376">
        <source>Text to search:</source>
        <translation>Text to search:</translation>
        <extra-name>SearchText</extra-name>
    </message>
    <message id="377">
        <source>Match ca&amp;se</source>
        <translation>Match ca&amp;se</translation>
        <extra-name>MatchCase</extra-name>
    </message>
    <message id="378">
        <source>Search again</source>
        <translation>Search again</translation>
        <extra-name>SearchAgain</extra-name>
    </message>
    <message id="380">
        <source>You have not entered any file types.</source>
        <translation>You have not entered any file types.</translation>
        <extra-name>NoFileTypes</extra-name>
    </message>
    <message id="381">
        <source>Refresh</source>
        <translation>Refresh</translation>
        <extra-name>Refresh</extra-name>
    </message>
    <message id="383">
        <source>Execute all selected activities</source>
        <translation>Execute all selected activities</translation>
        <extra-name>ExecuteMarked</extra-name>
    </message>
    <message id="384">
        <source>Should the marked activities started at once now?</source>
        <translation>Should the marked activities started at once now?</translation>
        <extra-name>StartMarkedQuestion</extra-name>
    </message>
    <message id="385">
        <source>Start activities</source>
        <translation>Start activities</translation>
        <extra-name>StartMarkedTitle</extra-name>
    </message>
    <message id="386">
        <source>The action can&apos;t be saved because another action with the same name already exists! Please change the name of this activity!</source>
        <translation>The action can&apos;t be saved because another action with the same name already exists! Please change the name of this activity!</translation>
        <extra-name>NameTaken</extra-name>
    </message>
    <message id="387">
        <source>Count executions</source>
        <translation>Count executions</translation>
        <extra-name>ExecutionsColumn</extra-name>
    </message>
    <message id="388">
        <source>Write logfile</source>
        <translation>Write logfile</translation>
        <extra-name>WriteLog</extra-name>
    </message>
    <message id="389">
        <source>Executable files</source>
        <translation>Executable files</translation>
        <extra-name>ExecutableFiles</extra-name>
    </message>
    <message id="390">
        <source>File extensions</source>
        <translation>File extensions</translation>
        <extra-name>FileExtensions</extra-name>
    </message>
    <message id="394">
        <source>All</source>
        <translation>All</translation>
        <extra-name>All</extra-name>
    </message>
    <message id="395">
        <source>Last execution</source>
        <translation>Last execution</translation>
        <extra-name>LastExecutionColumn</extra-name>
    </message>
    <message id="396">
        <source>Time</source>
        <translation>Time</translation>
        <extra-name>TimeTitle</extra-name>
    </message>
    <message id="397">
        <source>Time format is invalid, please reenter!</source>
        <translation>Time format is invalid, please reenter!</translation>
        <extra-name>TimeReenter</extra-name>
    </message>
    <message id="398">
        <source>Open source dir. in Explorer</source>
        <translation>Open source dir. in Explorer</translation>
        <extra-name>OpenSource</extra-name>
    </message>
    <message id="399">
        <source>Open target dir. in Explorer</source>
        <translation>Open target dir. in Explorer</translation>
        <extra-name>OpenDestination</extra-name>
    </message>
    <message id="403">
        <source>Abort</source>
        <translation>Abort</translation>
        <extra-name>Abort</extra-name>
    </message>
    <message id="404">
        <source>Aborted by user while processing action!</source>
        <translation>Aborted by user while processing action!</translation>
        <extra-name>AbortedByUser</extra-name>
    </message>
    <message id="405">
        <source>Activate &quot;SafeExit&quot; while processing by &apos;F8&apos; key</source>
        <translation>Activate &quot;SafeExit&quot; while processing by &apos;F8&apos; key</translation>
        <extra-name>ActivateSafeExit</extra-name>
    </message>
    <message id="406">
        <source>Check for update ...</source>
        <translation>Check for update ...</translation>
        <extra-name>CheckForUpdate</extra-name>
    </message>
    <message id="407">
        <source>A new version (</source>
        <translation>A new version (</translation>
        <extra-name>NewVersion</extra-name>
    </message>
    <message id="408">
        <source>) is available.</source>
        <translation>) is available.</translation>
        <extra-name>IsAvailable</extra-name>
    </message>
    <message id="409">
        <source>Do you want to visit the download page?</source>
        <translation>Do you want to visit the download page?</translation>
        <extra-name>VisitDownloadPage</extra-name>
    </message>
    <message id="410">
        <source>Update</source>
        <translation>Update</translation>
        <extra-name>UpdateTitle</extra-name>
    </message>
    <message id="411">
        <source>The latest version of the application is installed, no update available.</source>
        <translation>The latest version of the application is installed, no update available.</translation>
        <extra-name>NoUpdate</extra-name>
    </message>
    <message id="412">
        <source>Service installed successfull.</source>
        <translation>Service installed successfull.</translation>
        <extra-name>ServiceInstalled</extra-name>
    </message>
    <message id="413">
        <source>Service installation failed.</source>
        <translation>Service installation failed.</translation>
        <extra-name>ServiceInstallFailed</extra-name>
    </message>
    <message id="414">
        <source>Service uninstalled successfull.</source>
        <translation>Service uninstalled successfull.</translation>
        <extra-name>ServiceUninstalled</extra-name>
    </message>
    <message id="415">
        <source>Service uninstall failed.</source>
        <translation>Service uninstall failed.</translation>
        <extra-name>ServiceUninstallFailed</extra-name>
    </message>
    <message id="416">
        <source>Unknown service parameter.</source>
        <translation>Unknown service parameter.</translation>
        <extra-name>UnknownServiceParameter</extra-name>
    </message>
    <message id="417">
        <source>Kalvenor service configuration</source>
        <translation>Kalvenor service configuration</translation>
        <extra-name>ServiceTitle</extra-name>
    </message>
    <message id="419">
        <source>Service continued</source>
        <translation>Service continued</translation>
        <extra-name>ServiceContinued</extra-name>
    </message>
    <message id="420">
        <source>paused</source>
        <translation>paused</translation>
        <extra-name>Paused</extra-name>
    </message>
    <message id="421">
        <source>Start service</source>
        <translation>Start service</translation>
        <extra-name>StartService</extra-name>
    </message>
    <message id="422">
        <source>Stop service</source>
        <translation>Stop service</translation>
        <extra-name>StopService</extra-name>
    </message>
    <message id="423">
        <source>Install service</source>
        <translation>Install service</translation>
        <extra-name>InstallService</extra-name>
    </message>
    <message id="424">
        <source>Uninstall service</source>
        <translation>Uninstall service</translation>
        <extra-name>UninstallService</extra-name>
    </message>
    <message id="425">
        <source>Application will be closed to stop service.</source>
        <translation>Application will be closed to stop service.</translation>
        <extra-name>ClosesToStopService</extra-name>
    </message>
    <message id="426">
        <source>Application will be closed to start service.</source>
        <translation>Application will be closed to start service.</translation>
        <extra-name>ClosesToStartService</extra-name>
    </message>
    <message id="427">
        <source>Note: For further configuration of the service please read the manual.</source>
        <translation>Note: For further configuration of the service please read the manual.</translation>
        <extra-name>ServiceNote</extra-name>
    </message>
    <message id="428">
        <source>Service settings</source>
        <translation>Service settings</translation>
        <extra-name>ServiceSettings</extra-name>
    </message>
    <message id="429">
        <source>Stop action, if directory doesn&apos;t exist</source>
        <translation>Stop action, if directory doesn&apos;t exist</translation>
        <extra-name>StopWithoutDirectory</extra-name>
    </message>
    <message id="430">
        <source>&apos; not found, monitoring suspended for this interval.</source>
        <translation>&apos; not found, monitoring suspended for this interval.</translation>
        <extra-name>NotFoundSuspended</extra-name>
    </message>
    <message id="431">
        <source>&apos; suspended for this interval.</source>
        <translation>&apos; suspended for this interval.</translation>
        <extra-name>SuspendedForInterval</extra-name>
    </message>
</context>
<context>
    <name>Own texts</name>
    <message id="322">
        <source>Recipient:</source>
        <translation>Recipient:</translation>
        <extra-name>Recipient</extra-name>
    </message>
    <message id="323">
        <source>Subject:</source>
        <translation>Subject:</translation>
        <extra-name>Subject</extra-name>
    </message>
    <message id="418">
        <source>Service </source>
        <translation>Service </translation>
        <extra-name>Service</extra-name>
    </message>
    <message id="432">
        <source>Another program changed the activity file on disk. Nothing was saved.</source>
        <translation>Another program changed the activity file on disk. Nothing was saved.</translation>
        <extra-name>FileChangedOutside</extra-name>
    </message>
    <message id="433">
        <source>The activity file could not be loaded, so nothing can be saved to it.</source>
        <translation>The activity file could not be loaded, so nothing can be saved to it.</translation>
        <extra-name>FileNotLoaded</extra-name>
    </message>
    <message id="434">
        <source>The activity file could not be saved:</source>
        <translation>The activity file could not be saved:</translation>
        <extra-name>FileNotSaved</extra-name>
    </message>
    <message id="435">
        <source>The damaged activity file could not be moved aside:</source>
        <translation>The damaged activity file could not be moved aside:</translation>
        <extra-name>FileNotMovedAway</extra-name>
    </message>
    <message id="436">
        <source>The activity file could not be created:</source>
        <translation>The activity file could not be created:</translation>
        <extra-name>FileNotCreated</extra-name>
    </message>
    <message id="437">
        <source>Another process is already using this activity file. Monitoring was not started.</source>
        <translation>Another process is already using this activity file. Monitoring was not started.</translation>
        <extra-name>MonitoredElsewhere</extra-name>
    </message>
    <message id="438">
        <source>Activities: %1, active: %2</source>
        <translation>Activities: %1, active: %2</translation>
        <extra-name>ActivityCount</extra-name>
    </message>
    <message id="439">
        <source>To accept this notice, start Kalvenor once with a window, or set Accepted=Yes under [Options] in the settings</source>
        <translation>To accept this notice, start Kalvenor once with a window, or set Accepted=Yes under [Options] in the settings</translation>
        <extra-name>AcceptHeadless</extra-name>
    </message>
    <message id="440">
        <source>Monitoring is off: the option &quot;After start immediately start monitoring&quot; is not set.</source>
        <translation>Monitoring is off: the option &quot;After start immediately start monitoring&quot; is not set.</translation>
        <extra-name>MonitoringIsOff</extra-name>
    </message>
    <message id="443">
        <source>The activity file could not be read:</source>
        <translation>The activity file could not be read:</translation>
        <extra-name>FileUnreadable</extra-name>
    </message>
    <message id="445">
        <source>&amp;Activity</source>
        <translation>&amp;Activity</translation>
        <extra-name>ActivityMenu</extra-name>
    </message>
    <message id="446">
        <source>&amp;Yes</source>
        <translation>&amp;Yes</translation>
        <extra-name>Yes</extra-name>
    </message>
    <message id="447">
        <source>&amp;No</source>
        <translation>&amp;No</translation>
        <extra-name>No</extra-name>
    </message>
    <message id="448">
        <source>OK</source>
        <translation>OK</translation>
        <extra-name>Ok</extra-name>
    </message>
    <message id="449">
        <source>Cancel</source>
        <translation>Cancel</translation>
        <extra-name>Cancel</extra-name>
    </message>
    <message id="450">
        <source>Runs activities from an activity file once, immediately.</source>
        <translation>Runs activities from an activity file once, immediately.</translation>
        <extra-name>RunPurpose</extra-name>
    </message>
    <message id="451">
        <source>Path of the activity file.</source>
        <translation>Path of the activity file.</translation>
        <extra-name>RunFileArgument</extra-name>
    </message>
    <message id="452">
        <source>Names of the activities to run, in this order. Without names, every active one.</source>
        <translation>Names of the activities to run, in this order. Without names, every active one.</translation>
        <extra-name>RunNamesArgument</extra-name>
    </message>
    <message id="453">
        <source>The activity file '%1' has no activity '%2'.</source>
        <translation>The activity file '%1' has no activity '%2'.</translation>
        <extra-name>RunUnknownActivity</extra-name>
    </message>
    <message id="454">
        <source>Another process is using the activity file '%1'. Nothing was run.</source>
        <translation>Another process is using the activity file '%1'. Nothing was run.</translation>
        <extra-name>RunRefused</extra-name>
    </message>
    <message id="460">
        <source>New activity</source>
        <translation>New activity</translation>
        <extra-name>NewActivity</extra-name>
    </message>
    <message id="461">
        <source>Properties of &apos;%1&apos;</source>
        <translation>Properties of &apos;%1&apos;</translation>
        <extra-name>PropertiesOf</extra-name>
    </message>
    <message id="462">
        <source>&amp;Directories</source>
        <translation>&amp;Directories</translation>
        <extra-name>DirectoriesTab</extra-name>
    </message>
    <message id="463">
        <source>&amp;Schedule</source>
        <translation>&amp;Schedule</translation>
        <extra-name>ScheduleTab</extra-name>
    </message>
    <message id="464">
        <source>&amp;Action</source>
        <translation>&amp;Action</translation>
        <extra-name>ActionTab</extra-name>
    </message>
    <message id="465">
        <source>E-&amp;mail</source>
        <translation>E-&amp;mail</translation>
        <extra-name>MailTab</extra-name>
    </message>
    <message id="466">
        <source>Activity is &amp;enabled</source>
        <translation>Activity is &amp;enabled</translation>
        <extra-name>ActivityEnabled</extra-name>
    </message>
    <message id="467">
        <source>Select source directory</source>
        <translation>Select source directory</translation>
        <extra-name>SelectSource</extra-name>
    </message>
    <message id="468">
        <source>Select destination directory</source>
        <translation>Select destination directory</translation>
        <extra-name>SelectDestination</extra-name>
    </message>
    <message id="469">
        <source>Recent source directories</source>
        <translation>Recent source directories</translation>
        <extra-name>RecentSources</extra-name>
    </message>
    <message id="470">
        <source>Recent destination directories</source>
        <translation>Recent destination directories</translation>
        <extra-name>RecentDestinations</extra-name>
    </message>
    <message id="472">
        <source>Fixed time</source>
        <translation>Fixed time</translation>
        <extra-name>FixedTime</extra-name>
    </message>
    <message id="473">
        <source>On&amp;ce, on this date:</source>
        <translation>On&amp;ce, on this date:</translation>
        <extra-name>OnceOnDate</extra-name>
    </message>
    <message id="474">
        <source>At this &amp;time of day:</source>
        <translation>At this &amp;time of day:</translation>
        <extra-name>AtTimeOfDay</extra-name>
    </message>
    <message id="475">
        <source>DMY</source>
        <translation>DMY</translation>
        <extra-name>DateOrderLetters</extra-name>
    </message>
    <message id="476">
        <source>Reactions</source>
        <translation>Reactions</translation>
        <extra-name>Reactions</extra-name>
    </message>
    <message id="477">
        <source>e.g. exe;zip;dll</source>
        <translation>e.g. exe;zip;dll</translation>
        <extra-name>ExtensionsExample</extra-name>
    </message>
    <message id="478">
        <source>&amp;Notify by e-mail after each run</source>
        <translation>&amp;Notify by e-mail after each run</translation>
        <extra-name>NotifyByMail</extra-name>
    </message>
    <message id="479">
        <source>S&amp;ender:</source>
        <translation>S&amp;ender:</translation>
        <extra-name>Sender</extra-name>
    </message>
    <message id="480">
        <source>Co&amp;py to:</source>
        <translation>Co&amp;py to:</translation>
        <extra-name>CopyTo</extra-name>
    </message>
    <message id="481">
        <source>Message te&amp;xt:</source>
        <translation>Message te&amp;xt:</translation>
        <extra-name>MessageText</extra-name>
    </message>
    <message id="482">
        <source>attach the &amp;logfile</source>
        <translation>attach the &amp;logfile</translation>
        <extra-name>AttachLog</extra-name>
    </message>
    <message id="483">
        <source>Load &amp;contacts</source>
        <translation>Load &amp;contacts</translation>
        <extra-name>LoadContacts</extra-name>
    </message>
    <message id="484">
        <source>This name cannot be used. A name starts with a letter or &quot;_&quot; and contains only letters, digits, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;, but no blanks. The character set of the activity file must include every letter.</source>
        <translation>This name cannot be used. A name starts with a letter or &quot;_&quot; and contains only letters, digits, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;, but no blanks. The character set of the activity file must include every letter.</translation>
        <extra-name>NameUnusable</extra-name>
    </message>
    <message id="485">
        <source>No mail program with readable contacts was found.</source>
        <translation>No mail program with readable contacts was found.</translation>
        <extra-name>NoContacts</extra-name>
    </message>
    <message id="486">
        <source>No mail program was found that could send the message. Without an SMTP host, no mail is sent.</source>
        <translation>No mail program was found that could send the message. Without an SMTP host, no mail is sent.</translation>
        <extra-name>NoMailProgram</extra-name>
    </message>
    <message id="487">
        <source>empty: the recipient's mail host</source>
        <translation>empty: the recipient's mail host</translation>
        <extra-name>MailHostOfRecipient</extra-name>
    </message>
    <message id="601">
        <source>%1: %2 files, %3</source>
        <translation>%1: %2 files, %3</translation>
        <extra-name>FilesAndSize</extra-name>
    </message>
    <message id="520">
        <source>The entry that starts Kalvenor with your session could not be changed:</source>
        <translation>The entry that starts Kalvenor with your session could not be changed:</translation>
        <extra-name>AutostartNotChanged</extra-name>
    </message>
    <message id="522">
        <source>The logfile could not be read:</source>
        <translation>The logfile could not be read:</translation>
        <extra-name>LogUnreadable</extra-name>
    </message>
    <message id="523">
        <source>The logfile could not be deleted:</source>
        <translation>The logfile could not be deleted:</translation>
        <extra-name>LogNotDeleted</extra-name>
    </message>
    <message id="524">
        <source>The options could not be stored:</source>
        <translation>The options could not be stored:</translation>
        <extra-name>OptionsNotStored</extra-name>
    </message>
    <message id="525">
        <source>&amp;Cancel</source>
        <translation>&amp;Cancel</translation>
        <extra-name>CancelButton</extra-name>
    </message>
    <message id="526">
        <source>The web page %1 could not be opened.</source>
        <translation>The web page %1 could not be opened.</translation>
        <extra-name>WebPageNotOpened</extra-name>
    </message>
    <message id="527">
        <source>About Kalvenor Pro</source>
        <translation>About Kalvenor Pro</translation>
        <extra-name>AboutTitle</extra-name>
    </message>
    <message id="528">
        <source>Version %1</source>
        <translation>Version %1</translation>
        <extra-name>Version</extra-name>
    </message>
    <message id="529">
        <source>This program comes without any warranty. Its use is subject to the license terms and conditions in the manual.

It uses Qt under the GNU Lesser General Public License, version 3, and libxml2 under the MIT License.</source>
        <translation>This program comes without any warranty. Its use is subject to the license terms and conditions in the manual.

It uses Qt under the GNU Lesser General Public License, version 3, and libxml2 under the MIT License.</translation>
        <extra-name>Warranty</extra-name>
    </message>
    <message id="530">
        <source>&amp;System information ...</source>
        <translation>&amp;System information ...</translation>
        <extra-name>SystemInformation</extra-name>
    </message>
    <message id="531">
        <source>C&amp;lose</source>
        <translation>C&amp;lose</translation>
        <extra-name>Close</extra-name>
    </message>
    <message id="532">
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
        <extra-name>CopyToClipboard</extra-name>
    </message>
    <message id="533">
        <source>Program</source>
        <translation>Program</translation>
        <extra-name>ReportProgram</extra-name>
    </message>
    <message id="534">
        <source>Qt</source>
        <translation>Qt</translation>
        <extra-name>ReportQt</extra-name>
    </message>
    <message id="535">
        <source>Operating system</source>
        <translation>Operating system</translation>
        <extra-name>ReportSystem</extra-name>
    </message>
    <message id="536">
        <source>Kernel</source>
        <translation>Kernel</translation>
        <extra-name>ReportKernel</extra-name>
    </message>
    <message id="537">
        <source>Architecture</source>
        <translation>Architecture</translation>
        <extra-name>ReportArchitecture</extra-name>
    </message>
    <message id="538">
        <source>Processors</source>
        <translation>Processors</translation>
        <extra-name>ReportProcessors</extra-name>
    </message>
    <message id="539">
        <source>Memory</source>
        <translation>Memory</translation>
        <extra-name>ReportMemory</extra-name>
    </message>
    <message id="540">
        <source>Display</source>
        <translation>Display</translation>
        <extra-name>ReportDisplay</extra-name>
    </message>
    <message id="541">
        <source>Program folder</source>
        <translation>Program folder</translation>
        <extra-name>ReportProgramFolder</extra-name>
    </message>
    <message id="542">
        <source>Data folder</source>
        <translation>Data folder</translation>
        <extra-name>ReportDataFolder</extra-name>
    </message>
    <message id="543">
        <source>Activity file</source>
        <translation>Activity file</translation>
        <extra-name>ReportActivityFile</extra-name>
    </message>
    <message id="544">
        <source>Logfile</source>
        <translation>Logfile</translation>
        <extra-name>ReportLogFile</extra-name>
    </message>
    <message id="545">
        <source>The folder &apos;%1&apos; could not be opened.</source>
        <translation>The folder &apos;%1&apos; could not be opened.</translation>
        <extra-name>FolderNotOpened</extra-name>
    </message>
    <message id="580">
        <source>The service manager could not be started.</source>
        <translation>The service manager could not be started.</translation>
        <extra-name>ServiceManagerNotStarted</extra-name>
    </message>
    <message id="581">
        <source>The time server did not answer in time.</source>
        <translation>The time server did not answer in time.</translation>
        <extra-name>TimeServerSilent</extra-name>
    </message>
    <message id="582">
        <source>The time server's answer is not a valid time.</source>
        <translation>The time server's answer is not a valid time.</translation>
        <extra-name>TimeServerNonsense</extra-name>
    </message>
    <message id="583">
        <source>Kalvenor activities</source>
        <translation>Kalvenor activities</translation>
        <extra-name>FileTypeName</extra-name>
    </message>
    <message id="584">
        <source>The computer could not be switched off.</source>
        <translation>The computer could not be switched off.</translation>
        <extra-name>NotSwitchedOff</extra-name>
    </message>
    <message id="585">
        <source>No lock could be created in the state folder ($XDG_STATE_HOME, usually ~/.local/state), so another process may be using the same files. Nothing was started.</source>
        <translation>No lock could be created in the state folder ($XDG_STATE_HOME, usually ~/.local/state), so another process may be using the same files. Nothing was started.</translation>
        <extra-name>NoLockPossible</extra-name>
    </message>
    <message id="586">
        <source>Another process is using this activity file. Nothing was saved.</source>
        <translation>Another process is using this activity file. Nothing was saved.</translation>
        <extra-name>SavedElsewhere</extra-name>
    </message>
    <message id="587">
        <source>Kalvenor retries to start monitoring every minute.</source>
        <translation>Kalvenor retries to start monitoring every minute.</translation>
        <extra-name>RetryEveryMinute</extra-name>
    </message>
    <message id="588">
        <source>All activities have ended. The computer will be switched off.</source>
        <translation>All activities have ended. The computer will be switched off.</translation>
        <extra-name>WillSwitchOff</extra-name>
    </message>
    <message id="589">
        <source>Seconds left: %1</source>
        <translation>Seconds left: %1</translation>
        <extra-name>SecondsLeft</extra-name>
    </message>
    <message id="590">
        <source>The computer was not switched off: it was cancelled, or new work has started.</source>
        <translation>The computer was not switched off: it was cancelled, or new work has started.</translation>
        <extra-name>SwitchOffCancelled</extra-name>
    </message>
    <message id="610">
        <source>'%1' is left alone: it belongs to Kalvenor.</source>
        <translation>'%1' is left alone: it belongs to Kalvenor.</translation>
        <extra-name>OwnFileLeftAlone</extra-name>
    </message>
    <message id="611">
        <source>Nothing is deleted in '%1': another file system is mounted there.</source>
        <translation>Nothing is deleted in '%1': another file system is mounted there.</translation>
        <extra-name>OtherMount</extra-name>
    </message>
    <message id="612">
        <source>Directory '%1' is left alone: it is or contains a directory of this activity.</source>
        <translation>Directory '%1' is left alone: it is or contains a directory of this activity.</translation>
        <extra-name>NestedDirectory</extra-name>
    </message>
    <message id="613">
        <source>Directory '%1' is left alone: it is nested more than 1,000 levels deep.</source>
        <translation>Directory '%1' is left alone: it is nested more than 1,000 levels deep.</translation>
        <extra-name>TooDeep</extra-name>
    </message>
    <message id="614">
        <source>Run ended early: the program is closing.</source>
        <translation>Run ended early: the program is closing.</translation>
        <extra-name>EndedByClosing</extra-name>
    </message>
    <message id="615">
        <source>Run ended early: monitoring was stopped.</source>
        <translation>Run ended early: monitoring was stopped.</translation>
        <extra-name>EndedByStop</extra-name>
    </message>
    <message id="616">
        <source>Run ended early: the activity was changed, or another activity file was opened.</source>
        <translation>Run ended early: the activity was changed, or another activity file was opened.</translation>
        <extra-name>EndedByRecordChange</extra-name>
    </message>
    <message id="617">
        <source>Run ended early: a directory of the activity no longer exists.</source>
        <translation>Run ended early: a directory of the activity no longer exists.</translation>
        <extra-name>EndedByLostDirectory</extra-name>
    </message>
    <message id="618">
        <source>Run ended early: a directory cannot be read, so nothing is deleted.</source>
        <translation>Run ended early: a directory cannot be read, so nothing is deleted.</translation>
        <extra-name>EndedByUnreadable</extra-name>
    </message>
    <message id="619">
        <source>Run ended early: a directory was replaced.</source>
        <translation>Run ended early: a directory was replaced.</translation>
        <extra-name>EndedByReplacedDirectory</extra-name>
    </message>
    <message id="620">
        <source>'%1' belongs to Kalvenor itself and cannot be the log file of an activity.</source>
        <translation>'%1' belongs to Kalvenor itself and cannot be the log file of an activity.</translation>
        <extra-name>LogIsOwnFile</extra-name>
    </message>
    <message id="630">
        <source>Not sent: the program is closing.</source>
        <translation>Not sent: the program is closing.</translation>
        <extra-name>MailNotSentClosing</extra-name>
    </message>
    <message id="631">
        <source>Not sent: %1 later e-mails of this activity are waiting.</source>
        <translation>Not sent: %1 later e-mails of this activity are waiting.</translation>
        <extra-name>MailDropped</extra-name>
    </message>
    <message id="632">
        <source>'%1' is not attached: %2</source>
        <translation>'%1' is not attached: %2</translation>
        <extra-name>MailNotAttached</extra-name>
    </message>
    <message id="650">
        <source>Reload it now? Entries in an open form are kept.</source>
        <translation>Reload it now? Entries in an open form are kept.</translation>
        <extra-name>LoadAgainQuestion</extra-name>
    </message>
    <message id="651">
        <source>The changes are not saved. Discard them?</source>
        <translation>The changes are not saved. Discard them?</translation>
        <extra-name>DropChanges</extra-name>
    </message>
    <message id="652">
        <source>An activity is still running. It will end after the current file. Exit anyway?</source>
        <translation>An activity is still running. It will end after the current file. Exit anyway?</translation>
        <extra-name>ExitDuringRun</extra-name>
    </message>
    <message id="653">
        <source>'%1' is a directory. Please enter the name of a file.</source>
        <translation>'%1' is a directory. Please enter the name of a file.</translation>
        <extra-name>LogIsDirectory</extra-name>
    </message>
    <message id="654">
        <source>Kalvenor Pro Anleitung.en.html</source>
        <translation>Kalvenor Pro Anleitung.en.html</translation>
        <extra-name>ManualPage</extra-name>
    </message>
    <message id="655">
        <source>The service is not installed.</source>
        <translation>The service is not installed.</translation>
        <extra-name>ServiceIsNotInstalled</extra-name>
    </message>
    <message id="656">
        <source>The service is installed but not running.</source>
        <translation>The service is installed but not running.</translation>
        <extra-name>ServiceIsStopped</extra-name>
    </message>
    <message id="657">
        <source>The service is running.</source>
        <translation>The service is running.</translation>
        <extra-name>ServiceIsRunning</extra-name>
    </message>
    <message id="658">
        <source>The service has failed: %1</source>
        <translation>The service has failed: %1</translation>
        <extra-name>ServiceHasFailed</extra-name>
    </message>
    <message id="659">
        <source>The state of the service is unknown: %1</source>
        <translation>The state of the service is unknown: %1</translation>
        <extra-name>ServiceStateUnknown</extra-name>
    </message>
    <message id="660">
        <source>Please wait for the service manager ...</source>
        <translation>Please wait for the service manager ...</translation>
        <extra-name>ServiceManagerWorking</extra-name>
    </message>
    <message id="670">
        <source>Finishing an interrupted move: '%1' is removed if '%2' holds the same bytes</source>
        <translation>Finishing an interrupted move: '%1' is removed if '%2' holds the same bytes</translation>
        <extra-name>FinishingMove</extra-name>
    </message>
    <message id="671">
        <source>The run is held: '%1' is not on the drive of the last run, as if that drive were not mounted. "Start activity immediately" or kalvenor-run --new-drive goes on with the new drive.</source>
        <translation>The run is held: '%1' is not on the drive of the last run, as if that drive were not mounted. "Start activity immediately" or kalvenor-run --new-drive goes on with the new drive.</translation>
        <extra-name>RunHeld</extra-name>
    </message>
    <message id="672">
        <source>Go on although a directory is not on the drive of the last run.</source>
        <translation>Go on although a directory is not on the drive of the last run.</translation>
        <extra-name>RunNewDriveOption</extra-name>
    </message>
    <message id="690">
        <source>The activity file holds more than this program can read. It is left as it is:</source>
        <translation>The activity file holds more than this program can read. It is left as it is:</translation>
        <extra-name>FileTooCostly</extra-name>
    </message>
    <message id="700">
        <source>This installation of Kalvenor Pro is updated together with the other packages of your system.</source>
        <translation>This installation of Kalvenor Pro is updated together with the other packages of your system.</translation>
        <extra-name>UpdatedByPackages</extra-name>
    </message>
    <message id="701">
        <source>This build of Kalvenor Pro knows no address where newer versions are announced.</source>
        <translation>This build of Kalvenor Pro knows no address where newer versions are announced.</translation>
        <extra-name>NoUpdateSite</extra-name>
    </message>
    <message id="702">
        <source>This build of Kalvenor Pro knows no address of its maker's home page.</source>
        <translation>This build of Kalvenor Pro knows no address of its maker's home page.</translation>
        <extra-name>NoHomePage</extra-name>
    </message>
    <message id="710">
        <source>There is no activity yet. An activity copies, moves or mirrors the files of one folder into another.</source>
        <translation>There is no activity yet. An activity copies, moves or mirrors the files of one folder into another.</translation>
        <extra-name>ListIsEmpty</extra-name>
    </message>
    <message id="711">
        <source>or drop a folder here</source>
        <translation>or drop a folder here</translation>
        <extra-name>OrDropFolder</extra-name>
    </message>
    <message id="712">
        <source>Whatever is only in the destination directory is deleted there, for good.</source>
        <translation>Whatever is only in the destination directory is deleted there, for good.</translation>
        <extra-name>MirrorDeletes</extra-name>
    </message>
    <message id="713">
        <source>This folder does not exist.</source>
        <translation>This folder does not exist.</translation>
        <extra-name>FolderMissing</extra-name>
    </message>
    <message id="714">
        <source>Create folder</source>
        <translation>Create folder</translation>
        <extra-name>CreateFolder</extra-name>
    </message>
    <message id="715">
        <source>The folder could not be created: %1</source>
        <translation>The folder could not be created: %1</translation>
        <extra-name>FolderNotCreated</extra-name>
    </message>
    <message id="716">
        <source>Use "%1"</source>
        <translation>Use "%1"</translation>
        <extra-name>UseName</extra-name>
    </message>
    <message id="717">
        <source>No blanks, no signs such as "&amp;"; a letter or "_" in front.</source>
        <translation>No blanks, no signs such as "&amp;"; a letter or "_" in front.</translation>
        <extra-name>NameHasUnusable</extra-name>
    </message>
    <message id="720">
        <source>Create an example ...</source>
        <translation>Create an example ...</translation>
        <extra-name>CreateExample</extra-name>
    </message>
    <message id="721">
        <source>Where to put the example</source>
        <translation>Where to put the example</translation>
        <extra-name>ExampleTitle</extra-name>
    </message>
    <message id="722">
        <source>Example</source>
        <translation>Example</translation>
        <extra-name>ExampleName</extra-name>
    </message>
    <message id="723">
        <source>Kalvenor example</source>
        <translation>Kalvenor example</translation>
        <extra-name>ExampleFolder</extra-name>
    </message>
    <message id="724">
        <source>Source</source>
        <translation>Source</translation>
        <extra-name>ExampleSource</extra-name>
    </message>
    <message id="725">
        <source>Destination</source>
        <translation>Destination</translation>
        <extra-name>ExampleDestination</extra-name>
    </message>
    <message id="726">
        <source>Welcome.txt</source>
        <translation>Welcome.txt</translation>
        <extra-name>ExampleFirstFile</extra-name>
    </message>
    <message id="727">
        <source>Once monitoring is on, this file is copied into the destination folder.</source>
        <translation>Once monitoring is on, this file is copied into the destination folder.</translation>
        <extra-name>ExampleFirstContent</extra-name>
    </message>
    <message id="728">
        <source>Change me.txt</source>
        <translation>Change me.txt</translation>
        <extra-name>ExampleSecondFile</extra-name>
    </message>
    <message id="729">
        <source>Change this text and save it: ten seconds later the copy has changed, too.</source>
        <translation>Change this text and save it: ten seconds later the copy has changed, too.</translation>
        <extra-name>ExampleSecondContent</extra-name>
    </message>
    <message id="730">
        <source>Start monitoring, then put a file into the source folder: within ten seconds it is in the destination folder, and the log says so.</source>
        <translation>Start monitoring, then put a file into the source folder: within ten seconds it is in the destination folder, and the log says so.</translation>
        <extra-name>ExampleComment</extra-name>
    </message>
    <message id="731">
        <source>There is an activity "%1" already. It is selected now.</source>
        <translation>There is an activity "%1" already. It is selected now.</translation>
        <extra-name>ExampleIsThere</extra-name>
    </message>
    <message id="732">
        <source>The example could not be created: %1</source>
        <translation>The example could not be created: %1</translation>
        <extra-name>ExampleNotCreated</extra-name>
    </message>
    <message id="733">
        <source>Last &amp;files</source>
        <translation>Last &amp;files</translation>
        <extra-name>LastFiles</extra-name>
    </message>
    <message id="734">
        <source>&amp;Clear this list</source>
        <translation>&amp;Clear this list</translation>
        <extra-name>ClearLastFiles</extra-name>
    </message>
    <message id="735">
        <source>Delete all selected activities</source>
        <translation>Delete all selected activities</translation>
        <extra-name>DeleteSelected</extra-name>
    </message>
    <message id="736">
        <source>Should these %1 activities really be deleted?</source>
        <translation>Should these %1 activities really be deleted?</translation>
        <extra-name>DeleteSelectedQuestion</extra-name>
    </message>
    <message id="737">
        <source>... and %1 more</source>
        <translation>... and %1 more</translation>
        <extra-name>AndMore</extra-name>
    </message>
    <message id="780">
        <source>Run ended early: you stopped it.</source>
        <translation>Run ended early: you stopped it.</translation>
        <extra-name>EndedByUser</extra-name>
    </message>
    <message id="781">
        <source>Has not run yet.</source>
        <translation>Has not run yet.</translation>
        <extra-name>ResultNone</extra-name>
    </message>
    <message id="782">
        <source>Is running.</source>
        <translation>Is running.</translation>
        <extra-name>ResultRunning</extra-name>
    </message>
    <message id="783">
        <source>Ran %1: %2.</source>
        <translation>Ran %1: %2.</translation>
        <extra-name>ResultFine</extra-name>
    </message>
    <message id="784">
        <source>nothing copied, moved or deleted</source>
        <translation>nothing copied, moved or deleted</translation>
        <extra-name>ResultNothing</extra-name>
    </message>
    <message id="785">
        <source>files copied or moved: %1 (%2)</source>
        <translation>files copied or moved: %1 (%2)</translation>
        <extra-name>ResultFiles</extra-name>
    </message>
    <message id="786">
        <source>Failed %1: %2</source>
        <translation>Failed %1: %2</translation>
        <extra-name>ResultFailed</extra-name>
    </message>
    <message id="787">
        <source>(and %1 more failures)</source>
        <translation>(and %1 more failures)</translation>
        <extra-name>ResultOthers</extra-name>
    </message>
    <message id="788">
        <source>Ended early %1: %2 (%3)</source>
        <translation>Ended early %1: %2 (%3)</translation>
        <extra-name>ResultEarly</extra-name>
    </message>
    <message id="789">
        <source>Stop this run after the present file</source>
        <translation>Stop this run after the present file</translation>
        <extra-name>StopRun</extra-name>
    </message>
    <message id="790">
        <source>Click: show it in the log</source>
        <translation>Click: show it in the log</translation>
        <extra-name>ShowInLog</extra-name>
    </message>
    <message id="791">
        <source>idle</source>
        <translation>idle</translation>
        <extra-name>TrayIdle</extra-name>
    </message>
    <message id="792">
        <source>monitoring</source>
        <translation>monitoring</translation>
        <extra-name>TrayMonitoring</extra-name>
    </message>
    <message id="793">
        <source>failed: %1</source>
        <translation>failed: %1</translation>
        <extra-name>TrayFailed</extra-name>
    </message>
    <message id="794">
        <source>&amp;Columns</source>
        <translation>&amp;Columns</translation>
        <extra-name>Columns</extra-name>
    </message>
    <message id="795">
        <source>Move to the &amp;left</source>
        <translation>Move to the &amp;left</translation>
        <extra-name>MoveColumnLeft</extra-name>
    </message>
    <message id="796">
        <source>Move to the &amp;right</source>
        <translation>Move to the &amp;right</translation>
        <extra-name>MoveColumnRight</extra-name>
    </message>
    <message id="797">
        <source>&amp;Standard columns</source>
        <translation>&amp;Standard columns</translation>
        <extra-name>StandardColumns</extra-name>
    </message>
    <message id="800">
        <source>Run ended early: something is no longer as the preview showed it.</source>
        <translation>Run ended early: something is no longer as the preview showed it.</translation>
        <extra-name>EndedByChange</extra-name>
    </message>
    <message id="801">
        <source>copy</source>
        <translation>copy</translation>
        <extra-name>DeedCopy</extra-name>
    </message>
    <message id="802">
        <source>move</source>
        <translation>move</translation>
        <extra-name>DeedMove</extra-name>
    </message>
    <message id="803">
        <source>replace</source>
        <translation>replace</translation>
        <extra-name>DeedReplace</extra-name>
    </message>
    <message id="804">
        <source>delete</source>
        <translation>delete</translation>
        <extra-name>DeedDelete</extra-name>
    </message>
    <message id="805">
        <source>ask</source>
        <translation>ask</translation>
        <extra-name>DeedAsk</extra-name>
    </message>
    <message id="806">
        <source>leave alone</source>
        <translation>leave alone</translation>
        <extra-name>DeedLeaveAlone</extra-name>
    </message>
    <message id="807">
        <source>fail</source>
        <translation>fail</translation>
        <extra-name>DeedFail</extra-name>
    </message>
    <message id="808">
        <source>only say what would be done</source>
        <translation>only say what would be done</translation>
        <extra-name>RunDryRunOption</extra-name>
    </message>
    <message id="809">
        <source>print how it went, or what would be done, as JSON</source>
        <translation>print how it went, or what would be done, as JSON</translation>
        <extra-name>RunJsonOption</extra-name>
    </message>
    <message id="810">
        <source>%1: copy %2, move %3, replace %4, delete %5, ask %6, leave alone %7, fail %8; to be written: %9</source>
        <translation>%1: copy %2, move %3, replace %4, delete %5, ask %6, leave alone %7, fail %8; to be written: %9</translation>
        <extra-name>PlanTotals</extra-name>
    </message>
    <message id="740">
        <source>Log window</source>
        <translation>Log window</translation>
        <extra-name>LogWindow</extra-name>
    </message>
    <message id="741">
        <source>There is no log to show yet. A log of the program is switched on in the general options ("Settings"), the log of one activity on its "Action" tab ("Properties").</source>
        <translation>There is no log to show yet. A log of the program is switched on in the general options ("Settings"), the log of one activity on its "Action" tab ("Properties").</translation>
        <extra-name>NoLogAnywhere</extra-name>
    </message>
    <message id="742">
        <source>Show only:</source>
        <translation>Show only:</translation>
        <extra-name>ShowOnly</extra-name>
    </message>
    <message id="743">
        <source>&amp;Copied</source>
        <translation>&amp;Copied</translation>
        <extra-name>LinesCopied</extra-name>
    </message>
    <message id="744">
        <source>&amp;Moved</source>
        <translation>&amp;Moved</translation>
        <extra-name>LinesMoved</extra-name>
    </message>
    <message id="745">
        <source>&amp;Deleted</source>
        <translation>&amp;Deleted</translation>
        <extra-name>LinesDeleted</extra-name>
    </message>
    <message id="746">
        <source>F&amp;ailed</source>
        <translation>F&amp;ailed</translation>
        <extra-name>LinesFailed</extra-name>
    </message>
    <message id="747">
        <source>&amp;Follow the end</source>
        <translation>&amp;Follow the end</translation>
        <extra-name>FollowEnd</extra-name>
    </message>
    <message id="748">
        <source>Next match</source>
        <translation>Next match</translation>
        <extra-name>NextMatch</extra-name>
    </message>
    <message id="749">
        <source>Previous match</source>
        <translation>Previous match</translation>
        <extra-name>PreviousMatch</extra-name>
    </message>
    <message id="750">
        <source>Close the search</source>
        <translation>Close the search</translation>
        <extra-name>CloseSearch</extra-name>
    </message>
    <message id="751">
        <source>Continued from the beginning</source>
        <translation>Continued from the beginning</translation>
        <extra-name>WrappedToStart</extra-name>
    </message>
    <message id="752">
        <source>Continued from the end</source>
        <translation>Continued from the end</translation>
        <extra-name>WrappedToEnd</extra-name>
    </message>
    <message id="753">
        <source>Searching ...</source>
        <translation>Searching ...</translation>
        <extra-name>Searching</extra-name>
    </message>
    <message id="754">
        <source>Reading the log ...</source>
        <translation>Reading the log ...</translation>
        <extra-name>ReadingLog</extra-name>
    </message>
    <message id="755">
        <source>Copy whole &amp;lines</source>
        <translation>Copy whole &amp;lines</translation>
        <extra-name>CopyLines</extra-name>
    </message>
    <message id="756">
        <source>The log is empty.</source>
        <translation>The log is empty.</translation>
        <extra-name>LogIsEmpty</extra-name>
    </message>
    <message id="757">
        <source>The log has no line of the chosen kinds.</source>
        <translation>The log has no line of the chosen kinds.</translation>
        <extra-name>NoSuchLines</extra-name>
    </message>
    <message id="812">
        <source>&amp;Preview ...</source>
        <translation>&amp;Preview ...</translation>
        <extra-name>Preview</extra-name>
    </message>
    <message id="813">
        <source>Preview of %1</source>
        <translation>Preview of %1</translation>
        <extra-name>PreviewTitle</extra-name>
    </message>
    <message id="814">
        <source>What</source>
        <translation>What</translation>
        <extra-name>PlanDeedColumn</extra-name>
    </message>
    <message id="815">
        <source>File or directory</source>
        <translation>File or directory</translation>
        <extra-name>PlanPathColumn</extra-name>
    </message>
    <message id="816">
        <source>Becomes</source>
        <translation>Becomes</translation>
        <extra-name>PlanTargetColumn</extra-name>
    </message>
    <message id="817">
        <source>Size</source>
        <translation>Size</translation>
        <extra-name>PlanSizeColumn</extra-name>
    </message>
    <message id="818">
        <source>Why not</source>
        <translation>Why not</translation>
        <extra-name>PlanReasonColumn</extra-name>
    </message>
    <message id="819">
        <source>&amp;Save as CSV ...</source>
        <translation>&amp;Save as CSV ...</translation>
        <extra-name>PlanExport</extra-name>
    </message>
    <message id="820">
        <source>&amp;Run exactly this now</source>
        <translation>&amp;Run exactly this now</translation>
        <extra-name>RunAsShown</extra-name>
    </message>
    <message id="821">
        <source>Show only what has this text in it</source>
        <translation>Show only what has this text in it</translation>
        <extra-name>PlanFilter</extra-name>
    </message>
    <message id="822">
        <source>Tables (*.csv)</source>
        <translation>Tables (*.csv)</translation>
        <extra-name>CsvFiles</extra-name>
    </message>
    <message id="823">
        <source>The list could not be saved:</source>
        <translation>The list could not be saved:</translation>
        <extra-name>PlanNotSaved</extra-name>
    </message>
    <message id="824">
        <source>The preview is not complete: %1</source>
        <translation>The preview is not complete: %1</translation>
        <extra-name>PlanIncomplete</extra-name>
    </message>
    <message id="760">
        <source>Another activity has this name.</source>
        <translation>Another activity has this name.</translation>
        <extra-name>NameTakenHint</extra-name>
    </message>
    <message id="825">
        <source>deleted: %1</source>
        <translation>deleted: %1</translation>
        <extra-name>ResultDeleted</extra-name>
    </message>
    <message id="830">
        <source>Run ended early: it was about to delete or replace more files than it may. They are as they were.</source>
        <translation>Run ended early: it was about to delete or replace more files than it may. They are as they were.</translation>
        <extra-name>EndedByBrake</extra-name>
    </message>
    <message id="831">
        <source>'%1' would delete %2 and replace %3 of the %4 files that it finds at the destination (%5 %).

Run anyway?</source>
        <translation>'%1' would delete %2 and replace %3 of the %4 files that it finds at the destination (%5 %).

Run anyway?</translation>
        <extra-name>BrakeQuestion</extra-name>
    </message>
    <message id="832">
        <source>Many files would be deleted or replaced</source>
        <translation>Many files would be deleted or replaced</translation>
        <extra-name>BrakeTitle</extra-name>
    </message>
    <message id="833">
        <source>The run of '%1' is held: it would delete %2 and replace %3 of the %4 files that it finds at the destination (%5 %), more than it may unasked. "Start activity immediately" asks.</source>
        <translation>The run of '%1' is held: it would delete %2 and replace %3 of the %4 files that it finds at the destination (%5 %), more than it may unasked. "Start activity immediately" asks.</translation>
        <extra-name>RunHeldByBrake</extra-name>
    </message>
    <message id="834">
        <source>The run is held: '%1' is not on the drive that the activity was saved for: %2. The tab "Safety" of its properties tells more.</source>
        <translation>The run is held: '%1' is not on the drive that the activity was saved for: %2. The tab "Safety" of its properties tells more.</translation>
        <extra-name>RunHeldByDrive</extra-name>
    </message>
    <message id="835">
        <source>unknown</source>
        <translation>unknown</translation>
        <extra-name>DriveNotKnown</extra-name>
    </message>
    <message id="836">
        <source>Sa&amp;fety</source>
        <translation>Sa&amp;fety</translation>
        <extra-name>SafetyTab</extra-name>
    </message>
    <message id="837">
        <source>Kept files</source>
        <translation>Kept files</translation>
        <extra-name>KeptFiles</extra-name>
    </message>
    <message id="838">
        <source>Keep deleted and replaced files for</source>
        <translation>Keep deleted and replaced files for</translation>
        <extra-name>KeepFor</extra-name>
    </message>
    <message id="839">
        <source>days</source>
        <translation>days</translation>
        <extra-name>DaysUnit</extra-name>
    </message>
    <message id="840">
        <source>not at all</source>
        <translation>not at all</translation>
        <extra-name>KeepNot</extra-name>
    </message>
    <message id="841">
        <source>They go to a hidden folder of the destination instead.</source>
        <translation>They go to a hidden folder of the destination instead.</translation>
        <extra-name>KeepHint</extra-name>
    </message>
    <message id="842">
        <source>Question before many changes</source>
        <translation>Question before many changes</translation>
        <extra-name>BrakeGroup</extra-name>
    </message>
    <message id="843">
        <source>Ask before a run deletes or replaces more than</source>
        <translation>Ask before a run deletes or replaces more than</translation>
        <extra-name>AskFilesCaption</extra-name>
    </message>
    <message id="844">
        <source>or more percent than</source>
        <translation>or more percent than</translation>
        <extra-name>AskPercentCaption</extra-name>
    </message>
    <message id="845">
        <source>files</source>
        <translation>files</translation>
        <extra-name>FilesUnit</extra-name>
    </message>
    <message id="846">
        <source>no limit</source>
        <translation>no limit</translation>
        <extra-name>AskNever</extra-name>
    </message>
    <message id="847">
        <source>Percent of the files that it finds at the destination. Without a user such a run waits.</source>
        <translation>Percent of the files that it finds at the destination. Without a user such a run waits.</translation>
        <extra-name>AskHint</extra-name>
    </message>
    <message id="848">
        <source>Drives</source>
        <translation>Drives</translation>
        <extra-name>DrivesGroup</extra-name>
    </message>
    <message id="849">
        <source>Run only while both directories are on these drives:</source>
        <translation>Run only while both directories are on these drives:</translation>
        <extra-name>OnlyOnDrives</extra-name>
    </message>
    <message id="850">
        <source>%1, there now</source>
        <translation>%1, there now</translation>
        <extra-name>DriveIsThere</extra-name>
    </message>
    <message id="851">
        <source>%1, not there now</source>
        <translation>%1, not there now</translation>
        <extra-name>DriveNotThere</extra-name>
    </message>
    <message id="852">
        <source>%1, but now it is on %2</source>
        <translation>%1, but now it is on %2</translation>
        <extra-name>DriveIsOther</extra-name>
    </message>
    <message id="853">
        <source>OK takes the drives that the directories are on at that moment.</source>
        <translation>OK takes the drives that the directories are on at that moment.</translation>
        <extra-name>DrivesHint</extra-name>
    </message>
    <message id="854">
        <source>It cannot be told which drive '%1' is on. The activity is to run on its own drives only: they must be there when it is saved.</source>
        <translation>It cannot be told which drive '%1' is on. The activity is to run on its own drives only: they must be there when it is saved.</translation>
        <extra-name>DriveUntold</extra-name>
    </message>
    <message id="855">
        <source>'%1' was on the drive %2. Now it is on %3.

Shall the activity run on the drive that is there now? With "No" it waits for the former one.</source>
        <translation>'%1' was on the drive %2. Now it is on %3.

Shall the activity run on the drive that is there now? With "No" it waits for the former one.</translation>
        <extra-name>DriveDiffers</extra-name>
    </message>
    <message id="856">
        <source>The preview shows what the activity would do as it was saved. Save it first: OK, then "Preview ..." in the list's menu.</source>
        <translation>The preview shows what the activity would do as it was saved. Save it first: OK, then "Preview ..." in the list's menu.</translation>
        <extra-name>PreviewSaveFirst</extra-name>
    </message>
    <message id="890">
        <source>Deleted and replaced files are kept in '%1' until %2</source>
        <translation>Deleted and replaced files are kept in '%1' until %2</translation>
        <extra-name>KeptIn</extra-name>
    </message>
    <message id="891">
        <source>Brought back '%1'</source>
        <translation>Brought back '%1'</translation>
        <extra-name>Restored</extra-name>
    </message>
    <message id="892">
        <source>Not brought back '%1': what is there now is not of that run</source>
        <translation>Not brought back '%1': what is there now is not of that run</translation>
        <extra-name>NotRestored</extra-name>
    </message>
    <message id="893">
        <source>Not brought back '%1': error %2</source>
        <translation>Not brought back '%1': error %2</translation>
        <extra-name>NotRestoredError</extra-name>
    </message>
    <message id="894">
        <source>'%1' keeps no deleted or replaced files of '%2'</source>
        <translation>'%1' keeps no deleted or replaced files of '%2'</translation>
        <extra-name>NothingKept</extra-name>
    </message>
    <message id="895">
        <source>%1 brought back, %2 left in the trash</source>
        <translation>%1 brought back, %2 left in the trash</translation>
        <extra-name>UndoSummary</extra-name>
    </message>
    <message id="896">
        <source>Bring back what the last run of each named activity deleted or replaced.</source>
        <translation>Bring back what the last run of each named activity deleted or replaced.</translation>
        <extra-name>RunUndoOption</extra-name>
    </message>
    <message id="897">
        <source>With --undo: not the last run but this one, by its folder's name in the trash.</source>
        <translation>With --undo: not the last run but this one, by its folder's name in the trash.</translation>
        <extra-name>RunRunOption</extra-name>
    </message>
    <message id="898">
        <source>&amp;Undo this run ...</source>
        <translation>&amp;Undo this run ...</translation>
        <extra-name>UndoThisRun</extra-name>
    </message>
    <message id="899">
        <source>Bring back what the run at the cursor deleted and replaced</source>
        <translation>Bring back what the run at the cursor deleted and replaced</translation>
        <extra-name>UndoThisRunTip</extra-name>
    </message>
    <message id="900">
        <source>Undo run</source>
        <translation>Undo run</translation>
        <extra-name>UndoTitle</extra-name>
    </message>
    <message id="901">
        <source>Bring back what the run of %1 of '%2' deleted and replaced in '%3'? Files that were changed since then stay as they are.</source>
        <translation>Bring back what the run of %1 of '%2' deleted and replaced in '%3'? Files that were changed since then stay as they are. A mirror deletes again at its next run what its source lacks.</translation>
        <extra-name>UndoQuestion</extra-name>
    </message>
    <message id="902">
        <source>This part of the log names no run whose files are kept. An activity keeps what it deletes and replaces when its safety settings say so.</source>
        <translation>This part of the log names no run whose files are kept. An activity keeps what it deletes and replaces when its safety settings say so.</translation>
        <extra-name>NoRunToUndo</extra-name>
    </message>
    <message id="903">
        <source>Nothing is kept in '%1' any more: it was brought back, or its days are over.</source>
        <translation>Nothing is kept in '%1' any more: it was brought back, or its days are over.</translation>
        <extra-name>KeptNoLonger</extra-name>
    </message>
    <message id="860">
        <source>%1 copied, %2 moved, %3 replaced, %4 deleted, %5 left alone, %6 failed, %7 in %8 s; ended: %9</source>
        <translation>%1 copied, %2 moved, %3 replaced, %4 deleted, %5 left alone, %6 failed, %7 in %8 s; ended: %9</translation>
        <extra-name>RunInWords</extra-name>
    </message>
    <message id="861">
        <source>Summary: %1</source>
        <translation>Summary: %1</translation>
        <extra-name>RunSummary</extra-name>
    </message>
    <message id="862">
        <source>done</source>
        <translation>done</translation>
        <extra-name>RunEndedDone</extra-name>
    </message>
    <message id="863">
        <source>After a run</source>
        <translation>After a run</translation>
        <extra-name>AfterARun</extra-name>
    </message>
    <message id="864">
        <source>&amp;Write a summary as the last line of each run into its log</source>
        <translation>&amp;Write a summary as the last line of each run into its log</translation>
        <extra-name>SummaryInLog</extra-name>
    </message>
    <message id="865">
        <source>&amp;Fill in %copied%, %failed%, %summary% and the like in mails</source>
        <translation>&amp;Fill in %copied%, %failed%, %summary% and the like in mails</translation>
        <extra-name>SummaryInMail</extra-name>
    </message>
    <message id="866">
        <source>Show on the des&amp;ktop:</source>
        <translation>Show on the des&amp;ktop:</translation>
        <extra-name>NotifyOption</extra-name>
    </message>
    <message id="867">
        <source>Nothing</source>
        <translation>Nothing</translation>
        <extra-name>NotifyNothing</extra-name>
    </message>
    <message id="868">
        <source>Failed runs</source>
        <translation>Failed runs</translation>
        <extra-name>NotifyFailures</extra-name>
    </message>
    <message id="869">
        <source>Failed runs and runs that have done something</source>
        <translation>Failed runs and runs that have done something</translation>
        <extra-name>NotifyAll</extra-name>
    </message>
    <message id="870">
        <source>%1 has failed</source>
        <translation>%1 has failed</translation>
        <extra-name>NoticeFailed</extra-name>
    </message>
    <message id="871">
        <source>%1 is done</source>
        <translation>%1 is done</translation>
        <extra-name>NoticeDone</extra-name>
    </message>
    <message id="872">
        <source>%1 activities have failed</source>
        <translation>%1 activities have failed</translation>
        <extra-name>NoticeSeveralFailed</extra-name>
    </message>
    <message id="873">
        <source>%1 activities are done</source>
        <translation>%1 activities are done</translation>
        <extra-name>NoticeSeveralDone</extra-name>
    </message>
    <message id="874">
        <source>S&amp;tatistics ...</source>
        <translation>S&amp;tatistics ...</translation>
        <extra-name>Statistics</extra-name>
    </message>
    <message id="875">
        <source>Statistics of %1</source>
        <translation>Statistics of %1</translation>
        <extra-name>StatisticsTitle</extra-name>
    </message>
    <message id="876">
        <source>This activity has not run yet as it is now.</source>
        <translation>This activity has not run yet as it is now.</translation>
        <extra-name>StatisticsNone</extra-name>
    </message>
    <message id="877">
        <source>Files copied, moved and deleted</source>
        <translation>Files copied, moved and deleted</translation>
        <extra-name>MeasureFiles</extra-name>
    </message>
    <message id="878">
        <source>Seconds</source>
        <translation>Seconds</translation>
        <extra-name>MeasureSeconds</extra-name>
    </message>
    <message id="879">
        <source>Size</source>
        <translation>Size</translation>
        <extra-name>MeasureBytes</extra-name>
    </message>
    <message id="880">
        <source>%1: %2</source>
        <translation>%1: %2</translation>
        <extra-name>StatisticsRun</extra-name>
    </message>
    <message id="881">
        <source>%1 runs from %2 to %3, each the same: %4</source>
        <translation>%1 runs from %2 to %3, each the same: %4</translation>
        <extra-name>StatisticsRuns</extra-name>
    </message>
    <message id="882">
        <source>%1 runs since %2, %3 of them failed; %4 files, %5</source>
        <translation>%1 runs since %2, %3 of them failed; %4 files, %5</translation>
        <extra-name>StatisticsTotals</extra-name>
    </message>
    <message id="883">
        <source>Runs, the newest on the right; choose one with the arrow keys</source>
        <translation>Runs, the newest on the right; choose one with the arrow keys</translation>
        <extra-name>RunChart</extra-name>
    </message>
    <message id="884">
        <source>&amp;Bars show:</source>
        <translation>&amp;Bars show:</translation>
        <extra-name>Measure</extra-name>
    </message>
    <message id="1000">
        <source>'%1' was changed less than %2 seconds ago and is left for a later run.</source>
        <translation>'%1' was changed less than %2 seconds ago and is left for a later run.</translation>
        <extra-name>FileLeftOut</extra-name>
    </message>
    <message id="1001">
        <source>%3 files were changed less than %2 seconds ago and are left for a later run, the first: '%1'</source>
        <translation>%3 files were changed less than %2 seconds ago and are left for a later run, the first: '%1'</translation>
        <extra-name>FilesLeftOut</extra-name>
    </message>
    <message id="1002">
        <source>Changes in '%1' cannot be watched: %2. The activity runs by its schedule only.</source>
        <translation>Changes in '%1' cannot be watched: %2. The activity runs by its schedule only.</translation>
        <extra-name>NotWatched</extra-name>
    </message>
    <message id="1003">
        <source>the directory is on another machine</source>
        <translation>the directory is on another machine</translation>
        <extra-name>WatchNetworkFolder</extra-name>
    </message>
    <message id="1004">
        <source>the system watches no more directories for this user</source>
        <translation>the system watches no more directories for this user</translation>
        <extra-name>WatchLimitReached</extra-name>
    </message>
    <message id="1005">
        <source>Changes</source>
        <translation>Changes</translation>
        <extra-name>ChangesGroup</extra-name>
    </message>
    <message id="1006">
        <source>Also &amp;when something changes in the source directory</source>
        <translation>Also &amp;when something changes in the source directory</translation>
        <extra-name>WatchCaption</extra-name>
    </message>
    <message id="1007">
        <source>O&amp;nly files untouched for:</source>
        <translation>O&amp;nly files untouched for:</translation>
        <extra-name>SettleCaption</extra-name>
    </message>
    <message id="1008">
        <source>no matter how long</source>
        <translation>no matter how long</translation>
        <extra-name>SettleNot</extra-name>
    </message>
    <message id="1009">
        <source>A file that is still being written is left for a later run. This counts for every run of the activity.</source>
        <translation>A file that is still being written is left for a later run. This counts for every run of the activity.</translation>
        <extra-name>SettleHint</extra-name>
    </message>
    <message id="950">
        <source>Missed at %1, run late.</source>
        <translation>Missed at %1, run late.</translation>
        <extra-name>MissedRun</extra-name>
    </message>
    <message id="951">
        <source>Schedules</source>
        <translation>Schedules</translation>
        <extra-name>Schedules</extra-name>
    </message>
    <message id="952">
        <source>&amp;Count intervals by the clock</source>
        <translation>&amp;Count intervals by the clock</translation>
        <extra-name>CountByTheClock</extra-name>
    </message>
    <message id="953">
        <source>&amp;Run missed times late</source>
        <translation>&amp;Run missed times late</translation>
        <extra-name>RunMissedLate</extra-name>
    </message>
    <message id="954">
        <source>An interval is real time: every 7 seconds is every 7 seconds, for as long as monitoring is on. Without this option the program counts in rounds, and some numbers stop after a while.</source>
        <translation>An interval is real time: every 7 seconds is every 7 seconds, for as long as monitoring is on. Without this option the program counts in rounds, and some numbers stop after a while.</translation>
        <extra-name>CountByTheClockHint</extra-name>
    </message>
    <message id="955">
        <source>What was to run while the computer slept or restarted, or while another run took long, runs once, as soon as it can. What you stop yourself is not made up for. Intervals take part when they are counted by the clock.</source>
        <translation>What was to run while the computer slept or restarted, or while another run took long, runs once, as soon as it can. What you stop yourself is not made up for. Intervals take part when they are counted by the clock.</translation>
        <extra-name>RunMissedHint</extra-name>
    </message>
    <message id="956">
        <source>Next run</source>
        <translation>Next run</translation>
        <extra-name>NextRunColumn</extra-name>
    </message>
    <message id="957">
        <source>never</source>
        <translation>never</translation>
        <extra-name>NextRunNever</extra-name>
    </message>
    <message id="958">
        <source>Monitoring is off.</source>
        <translation>Monitoring is off.</translation>
        <extra-name>NeverMonitoringOff</extra-name>
    </message>
    <message id="959">
        <source>The activity is not ticked.</source>
        <translation>The activity is not ticked.</translation>
        <extra-name>NeverNotTicked</extra-name>
    </message>
    <message id="960">
        <source>It was taken out of monitoring: it has had its one run, or a directory is missing.</source>
        <translation>It was taken out of monitoring: it has had its one run, or a directory is missing.</translation>
        <extra-name>NeverTakenOut</extra-name>
    </message>
    <message id="961">
        <source>It has no schedule.</source>
        <translation>It has no schedule.</translation>
        <extra-name>NeverNoSchedule</extra-name>
    </message>
    <message id="962">
        <source>Its interval is no whole number from 1 on.</source>
        <translation>Its interval is no whole number from 1 on.</translation>
        <extra-name>NeverNoNumber</extra-name>
    </message>
    <message id="963">
        <source>Its time is not of the form hh:mm, for example 08:00.</source>
        <translation>Its time is not of the form hh:mm, for example 08:00.</translation>
        <extra-name>NeverNoTime</extra-name>
    </message>
    <message id="964">
        <source>Its date cannot be read.</source>
        <translation>Its date cannot be read.</translation>
        <extra-name>NeverNoDate</extra-name>
    </message>
    <message id="965">
        <source>Its date is in the past.</source>
        <translation>Its date is in the past.</translation>
        <extra-name>NeverPast</extra-name>
    </message>
    <message id="966">
        <source>Counted in rounds, this interval does not come up again. "Count intervals by the clock" in the general options helps.</source>
        <translation>Counted in rounds, this interval does not come up again. "Count intervals by the clock" in the general options helps.</translation>
        <extra-name>NeverStalls</extra-name>
    </message>
    <message id="967">
        <source>The run will be held unless something changes: %1</source>
        <translation>The run will be held unless something changes: %1</translation>
        <extra-name>NextRunHeld</extra-name>
    </message>
    <message id="968">
        <source>Runs every second while monitoring is on.</source>
        <translation>Runs every second while monitoring is on.</translation>
        <extra-name>EverySecond</extra-name>
    </message>
    <message id="969">
        <source>Runs every %1 seconds while monitoring is on.</source>
        <translation>Runs every %1 seconds while monitoring is on.</translation>
        <extra-name>EverySeconds</extra-name>
    </message>
    <message id="970">
        <source>Runs every minute while monitoring is on.</source>
        <translation>Runs every minute while monitoring is on.</translation>
        <extra-name>EveryMinute</extra-name>
    </message>
    <message id="971">
        <source>Runs every %1 minutes while monitoring is on.</source>
        <translation>Runs every %1 minutes while monitoring is on.</translation>
        <extra-name>EveryMinutes</extra-name>
    </message>
    <message id="972">
        <source>Runs every hour while monitoring is on.</source>
        <translation>Runs every hour while monitoring is on.</translation>
        <extra-name>EveryHour</extra-name>
    </message>
    <message id="973">
        <source>Runs every %1 hours while monitoring is on.</source>
        <translation>Runs every %1 hours while monitoring is on.</translation>
        <extra-name>EveryHours</extra-name>
    </message>
    <message id="974">
        <source>Runs once, %1 after monitoring starts.</source>
        <translation>Runs once, %1 after monitoring starts.</translation>
        <extra-name>OnceAfter</extra-name>
    </message>
    <message id="975">
        <source>1 second</source>
        <translation>1 second</translation>
        <extra-name>SpanSecond</extra-name>
    </message>
    <message id="976">
        <source>%1 seconds</source>
        <translation>%1 seconds</translation>
        <extra-name>SpanSeconds</extra-name>
    </message>
    <message id="977">
        <source>1 minute</source>
        <translation>1 minute</translation>
        <extra-name>SpanMinute</extra-name>
    </message>
    <message id="978">
        <source>%1 minutes</source>
        <translation>%1 minutes</translation>
        <extra-name>SpanMinutes</extra-name>
    </message>
    <message id="979">
        <source>1 hour</source>
        <translation>1 hour</translation>
        <extra-name>SpanHour</extra-name>
    </message>
    <message id="980">
        <source>%1 hours</source>
        <translation>%1 hours</translation>
        <extra-name>SpanHours</extra-name>
    </message>
    <message id="981">
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
        <extra-name>SpanRange</extra-name>
    </message>
    <message id="982">
        <source>Counted in rounds, it runs first after %1, then after pauses of %2.</source>
        <translation>Counted in rounds, it runs first after %1, then after pauses of %2.</translation>
        <extra-name>CountedInRounds</extra-name>
    </message>
    <message id="983">
        <source>With this number it stops after one run, until monitoring is started again.</source>
        <translation>With this number it stops after one run, until monitoring is started again.</translation>
        <extra-name>StopsAfterRun</extra-name>
    </message>
    <message id="984">
        <source>With this number it stops after %1 runs, until monitoring is started again.</source>
        <translation>With this number it stops after %1 runs, until monitoring is started again.</translation>
        <extra-name>StopsAfterRuns</extra-name>
    </message>
    <message id="985">
        <source>With this number it never runs.</source>
        <translation>With this number it never runs.</translation>
        <extra-name>WouldNeverRun</extra-name>
    </message>
    <message id="986">
        <source>"Count intervals by the clock" in the general options avoids that.</source>
        <translation>"Count intervals by the clock" in the general options avoids that.</translation>
        <extra-name>StallHint</extra-name>
    </message>
    <message id="987">
        <source>Runs every day at %1.</source>
        <translation>Runs every day at %1.</translation>
        <extra-name>EveryDayAt</extra-name>
    </message>
    <message id="988">
        <source>Runs once, the next time it is %1.</source>
        <translation>Runs once, the next time it is %1.</translation>
        <extra-name>OnceAtTime</extra-name>
    </message>
    <message id="989">
        <source>Runs once, on %1 at %2.</source>
        <translation>Runs once, on %1 at %2.</translation>
        <extra-name>OnceOnDay</extra-name>
    </message>
    <message id="990">
        <source>%1, %2</source>
        <translation>%1, %2</translation>
        <extra-name>DayWithName</extra-name>
    </message>
    <message id="991">
        <source>This moment is in the past: the activity does not run.</source>
        <translation>This moment is in the past: the activity does not run.</translation>
        <extra-name>MomentIsPast</extra-name>
    </message>
    <message id="992">
        <source>Choose when the activity runs.</source>
        <translation>Choose when the activity runs.</translation>
        <extra-name>ChooseSchedule</extra-name>
    </message>
    <message id="993">
        <source>The date is missing.</source>
        <translation>The date is missing.</translation>
        <extra-name>EnterDate</extra-name>
    </message>
    <message id="994">
        <source>The time of day is missing, from 00:00 to 23:59.</source>
        <translation>The time of day is missing, from 00:00 to 23:59.</translation>
        <extra-name>EnterTime</extra-name>
    </message>
    <message id="995">
        <source>en</source>
        <translation>en</translation>
        <extra-name>NameOfLanguage</extra-name>
    </message>
    <message id="1010">
        <source>Also soon after something has changed in the source directory.</source>
        <translation>Also soon after something has changed in the source directory.</translation>
        <extra-name>AlsoOnChange</extra-name>
    </message>
    <message id="904">
        <source>MailSecurity is neither 0, 1 nor 2</source>
        <translation>MailSecurity is neither 0, 1 nor 2</translation>
        <extra-name>MailSecurityUnknown</extra-name>
    </message>
    <message id="905">
        <source>POP3 before SMTP does not go with encryption: it would send the password in the clear</source>
        <translation>POP3 before SMTP does not go with encryption: it would send the password in the clear</translation>
        <extra-name>MailSecurityWithPop</extra-name>
    </message>
    <message id="906">
        <source>This installation cannot encrypt: it has no TLS library</source>
        <translation>This installation cannot encrypt: it has no TLS library</translation>
        <extra-name>MailNoTls</extra-name>
    </message>
    <message id="907">
        <source>The CA file %1 cannot be used: %2</source>
        <translation>The CA file %1 cannot be used: %2</translation>
        <extra-name>MailCaFileUnusable</extra-name>
    </message>
    <message id="908">
        <source>it holds no certificate</source>
        <translation>it holds no certificate</translation>
        <extra-name>MailCaFileEmpty</extra-name>
    </message>
    <message id="909">
        <source>The server offers no encryption</source>
        <translation>The server offers no encryption</translation>
        <extra-name>MailNoEncryption</extra-name>
    </message>
    <message id="910">
        <source>The server sent unencrypted text where encryption begins</source>
        <translation>The server sent unencrypted text where encryption begins</translation>
        <extra-name>MailClearText</extra-name>
    </message>
    <message id="911">
        <source>The certificate of %1 is refused: %2</source>
        <translation>The certificate of %1 is refused: %2</translation>
        <extra-name>MailCertificateRefused</extra-name>
    </message>
    <message id="912">
        <source>The encryption with %1 failed: %2</source>
        <translation>The encryption with %1 failed: %2</translation>
        <extra-name>MailEncryptionFailed</extra-name>
    </message>
    <message id="913">
        <source>The server offers neither of the logins PLAIN and LOGIN</source>
        <translation>The server offers neither of the logins PLAIN and LOGIN</translation>
        <extra-name>MailNoLogin</extra-name>
    </message>
    <message id="914">
        <source>No password is stored for %1 at %2</source>
        <translation>No password is stored for %1 at %2</translation>
        <extra-name>MailNoPassword</extra-name>
    </message>
    <message id="915">
        <source>The password file %1 cannot be read: %2</source>
        <translation>The password file %1 cannot be read: %2</translation>
        <extra-name>MailPasswordFileUnusable</extra-name>
    </message>
    <message id="916">
        <source>The password file %1 is refused: it must belong to you and be closed to others (mode 0600)</source>
        <translation>The password file %1 is refused: it must belong to you and be closed to others (mode 0600)</translation>
        <extra-name>MailPasswordFileOpen</extra-name>
    </message>
    <message id="917">
        <source>The password store does not answer; it may be locked</source>
        <translation>The password store does not answer; it may be locked</translation>
        <extra-name>PasswordStoreSilent</extra-name>
    </message>
    <message id="918">
        <source>The password store refuses: %1</source>
        <translation>The password store refuses: %1</translation>
        <extra-name>PasswordStoreFailed</extra-name>
    </message>
    <message id="919">
        <source>There is no password store here</source>
        <translation>There is no password store here</translation>
        <extra-name>NoPasswordStore</extra-name>
    </message>
    <message id="920">
        <source>&amp;General</source>
        <translation>&amp;General</translation>
        <extra-name>GeneralTab</extra-name>
    </message>
    <message id="921">
        <source>E-&amp;mail</source>
        <translation>E-&amp;mail</translation>
        <extra-name>MailOptionsTab</extra-name>
    </message>
    <message id="922">
        <source>Mail server</source>
        <translation>Mail server</translation>
        <extra-name>MailServerGroup</extra-name>
    </message>
    <message id="923">
        <source>&amp;Encryption</source>
        <translation>&amp;Encryption</translation>
        <extra-name>MailEncryption</extra-name>
    </message>
    <message id="924">
        <source>None</source>
        <translation>None</translation>
        <extra-name>MailEncryptionNone</extra-name>
    </message>
    <message id="925">
        <source>STARTTLS</source>
        <translation>STARTTLS</translation>
        <extra-name>MailEncryptionStartTls</extra-name>
    </message>
    <message id="926">
        <source>TLS from the start</source>
        <translation>TLS from the start</translation>
        <extra-name>MailEncryptionTls</extra-name>
    </message>
    <message id="927">
        <source>&amp;Port</source>
        <translation>&amp;Port</translation>
        <extra-name>MailPort</extra-name>
    </message>
    <message id="928">
        <source>Login</source>
        <translation>Login</translation>
        <extra-name>MailLoginGroup</extra-name>
    </message>
    <message id="929">
        <source>&amp;User name</source>
        <translation>&amp;User name</translation>
        <extra-name>MailUser</extra-name>
    </message>
    <message id="930">
        <source>empty: no login</source>
        <translation>empty: no login</translation>
        <extra-name>MailUserNone</extra-name>
    </message>
    <message id="931">
        <source>Mail &amp;host</source>
        <translation>Mail &amp;host</translation>
        <extra-name>MailLoginHost</extra-name>
    </message>
    <message id="932">
        <source>Pass&amp;word</source>
        <translation>Pass&amp;word</translation>
        <extra-name>MailPassword</extra-name>
    </message>
    <message id="933">
        <source>stored; empty keeps it</source>
        <translation>stored; empty keeps it</translation>
        <extra-name>MailPasswordStored</extra-name>
    </message>
    <message id="934">
        <source>none stored</source>
        <translation>none stored</translation>
        <extra-name>MailPasswordMissing</extra-name>
    </message>
    <message id="935">
        <source>&amp;Forget</source>
        <translation>&amp;Forget</translation>
        <extra-name>MailForgetPassword</extra-name>
    </message>
    <message id="936">
        <source>Password f&amp;ile</source>
        <translation>Password f&amp;ile</translation>
        <extra-name>MailPasswordFile</extra-name>
    </message>
    <message id="937">
        <source>&amp;CA file</source>
        <translation>&amp;CA file</translation>
        <extra-name>MailCaFile</extra-name>
    </message>
    <message id="938">
        <source>Select the password file</source>
        <translation>Select the password file</translation>
        <extra-name>SelectPasswordFile</extra-name>
    </message>
    <message id="939">
        <source>Select the CA file</source>
        <translation>Select the CA file</translation>
        <extra-name>SelectCaFile</extra-name>
    </message>
    <message id="940">
        <source>%1. Write the password into a file that only you can read: machine HOST login USER password PASSWORD</source>
        <translation>%1. Write the password into a file that only you can read: machine HOST login USER password PASSWORD</translation>
        <extra-name>MailUsePasswordFile</extra-name>
    </message>
    <message id="941">
        <source>A password belongs to a user and a host. Enter both.</source>
        <translation>A password belongs to a user and a host. Enter both.</translation>
        <extra-name>MailPasswordNeedsHost</extra-name>
    </message>
    <message id="942">
        <source>The password was not changed.</source>
        <translation>The password was not changed.</translation>
        <extra-name>MailPasswordNotStored</extra-name>
    </message>
    <message id="943">
        <source>Send a &amp;test mail</source>
        <translation>Send a &amp;test mail</translation>
        <extra-name>TestMailSend</extra-name>
    </message>
    <message id="944">
        <source>Sending a test mail ...</source>
        <translation>Sending a test mail ...</translation>
        <extra-name>SendingTestMail</extra-name>
    </message>
    <message id="945">
        <source>The server has accepted the test mail to %1.</source>
        <translation>The server has accepted the test mail to %1.</translation>
        <extra-name>TestMailTaken</extra-name>
    </message>
    <message id="946">
        <source>The test mail was not sent.</source>
        <translation>The test mail was not sent.</translation>
        <extra-name>TestMailNotSent</extra-name>
    </message>
    <message id="1011">
        <source>'%1' has changed.</source>
        <translation>'%1' has changed.</translation>
        <extra-name>ChangeSeen</extra-name>
    </message>
    <message id="1012">
        <source>Something may have changed in '%1'.</source>
        <translation>Something may have changed in '%1'.</translation>
        <extra-name>AnythingChanged</extra-name>
    </message>
</context>
</TS>
