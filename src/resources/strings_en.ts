<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Given texts</name>
    <message id="103">
        <source>Visit Orrindale in the world wide web ...</source>
        <translation>Visit Orrindale in the world wide web ...</translation>
    </message>
    <message id="105">
        <source>Systeminformations not available on this system at the moment!</source>
        <translation>Systeminformations not available on this system at the moment!</translation>
    </message>
    <message id="107">
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message id="109">
        <source>If not used the right way, Kalvenor Pro can do harm to your computer system or cause data loss. Orrindale is not responsible for loss of data or caused damaged on your computer system. You use this software on your own risk. More you find in the license terms and conditions chapter in the manual. To use this program you MUST accept this notice and the license terms and conditions.</source>
        <translation>If not used the right way, Kalvenor Pro can do harm to your computer system or cause data loss. Orrindale is not responsible for loss of data or caused damaged on your computer system. You use this software on your own risk. More you find in the license terms and conditions chapter in the manual. To use this program you MUST accept this notice and the license terms and conditions.</translation>
    </message>
    <message id="110">
        <source>ATTENTION:</source>
        <translation>ATTENTION:</translation>
    </message>
    <message id="111">
        <source>Accept</source>
        <translation>Accept</translation>
    </message>
    <message id="112">
        <source>Decline</source>
        <translation>Decline</translation>
    </message>
    <message id="117">
        <source>General options</source>
        <translation>General options</translation>
    </message>
    <message id="118">
        <source>General settings</source>
        <translation>General settings</translation>
    </message>
    <message id="119">
        <source>Start Kalvenor mimimized with Windows startup</source>
        <translation>Start Kalvenor mimimized with Windows startup</translation>
    </message>
    <message id="120">
        <source>After minimizing show in tray notification area</source>
        <translation>After minimizing show in tray notification area</translation>
    </message>
    <message id="121">
        <source>Shutdown computer when finished last action</source>
        <translation>Shutdown computer when finished last action</translation>
    </message>
    <message id="122">
        <source>After start immediately start monitoring</source>
        <translation>After start immediately start monitoring</translation>
    </message>
    <message id="123">
        <source>Refresh logfile view every 10 seconds</source>
        <translation>Refresh logfile view every 10 seconds</translation>
    </message>
    <message id="124">
        <source>Logfile for Kalvenor</source>
        <translation>Logfile for Kalvenor</translation>
    </message>
    <message id="125">
        <source>&amp;Save</source>
        <translation>&amp;Save</translation>
    </message>
    <message id="126">
        <source>C&amp;ancel</source>
        <translation>C&amp;ancel</translation>
    </message>
    <message id="127">
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message id="128">
        <source>Select file</source>
        <translation>Select file</translation>
    </message>
    <message id="129">
        <source>Please select logging file</source>
        <translation>Please select logging file</translation>
    </message>
    <message id="130">
        <source>Log file</source>
        <translation>Log file</translation>
    </message>
    <message id="131">
        <source>All files</source>
        <translation>All files</translation>
    </message>
    <message id="132">
        <source>The selected directory &apos;</source>
        <translation>The selected directory &apos;</translation>
    </message>
    <message id="133">
        <source>&apos; doesn&apos;t exist.</source>
        <translation>&apos; doesn&apos;t exist.</translation>
    </message>
    <message id="134">
        <source>Please select a valid directory.</source>
        <translation>Please select a valid directory.</translation>
    </message>
    <message id="135">
        <source>Directory not found</source>
        <translation>Directory not found</translation>
    </message>
    <message id="136">
        <source>The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!</source>
        <translation>The help from within Kalvenor works only with an installed Internet Explorer 5.x or higher!</translation>
    </message>
    <message id="137">
        <source>Please use the help file located in the Kalvenor startmenu entry.</source>
        <translation>Please use the help file located in the Kalvenor startmenu entry.</translation>
    </message>
    <message id="138">
        <source>Help can not be opened</source>
        <translation>Help can not be opened</translation>
    </message>
    <message id="139">
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message id="140">
        <source>Import action file</source>
        <translation>Import action file</translation>
    </message>
    <message id="141">
        <source>Export action file</source>
        <translation>Export action file</translation>
    </message>
    <message id="142">
        <source>Start monitoring</source>
        <translation>Start monitoring</translation>
    </message>
    <message id="143">
        <source>Delete all activities</source>
        <translation>Delete all activities</translation>
    </message>
    <message id="144">
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message id="145">
        <source>Synchronize system clock</source>
        <translation>Synchronize system clock</translation>
    </message>
    <message id="146">
        <source>Show Kalvenor logfile</source>
        <translation>Show Kalvenor logfile</translation>
    </message>
    <message id="147">
        <source>Delete Kalvenor logfile</source>
        <translation>Delete Kalvenor logfile</translation>
    </message>
    <message id="148">
        <source>Exit</source>
        <translation>Exit</translation>
    </message>
    <message id="150">
        <source>About</source>
        <translation>About</translation>
    </message>
    <message id="151">
        <source>Add activity</source>
        <translation>Add activity</translation>
    </message>
    <message id="152">
        <source>Delete activity</source>
        <translation>Delete activity</translation>
    </message>
    <message id="153">
        <source>Select all</source>
        <translation>Select all</translation>
    </message>
    <message id="154">
        <source>Deselect all</source>
        <translation>Deselect all</translation>
    </message>
    <message id="155">
        <source>Show logfile</source>
        <translation>Show logfile</translation>
    </message>
    <message id="156">
        <source>Delete logfile</source>
        <translation>Delete logfile</translation>
    </message>
    <message id="157">
        <source>Start activity immediately</source>
        <translation>Start activity immediately</translation>
    </message>
    <message id="158">
        <source>Properties</source>
        <translation>Properties</translation>
    </message>
    <message id="159">
        <source>The monitoring is still activ. Exit anyway?</source>
        <translation>The monitoring is still activ. Exit anyway?</translation>
    </message>
    <message id="160">
        <source>Exit program</source>
        <translation>Exit program</translation>
    </message>
    <message id="162">
        <source>Select file to export</source>
        <translation>Select file to export</translation>
    </message>
    <message id="163">
        <source>Kalvenor action file</source>
        <translation>Kalvenor action file</translation>
    </message>
    <message id="164">
        <source>Exporting &apos;</source>
        <translation>Exporting &apos;</translation>
    </message>
    <message id="165">
        <source>While exporting another action file you will lose all current activities.</source>
        <translation>While exporting another action file you will lose all current activities.</translation>
    </message>
    <message id="166">
        <source>Do you really want to proceed?</source>
        <translation>Do you really want to proceed?</translation>
    </message>
    <message id="167">
        <source>Import action file</source>
        <translation>Import action file</translation>
    </message>
    <message id="168">
        <source>Select file to import</source>
        <translation>Select file to import</translation>
    </message>
    <message id="169">
        <source>Importing &apos;</source>
        <translation>Importing &apos;</translation>
    </message>
    <message id="172">
        <source>Running instance of Kalvenor Pro found!</source>
        <translation>Running instance of Kalvenor Pro found!</translation>
    </message>
    <message id="173">
        <source>It&apos;s not possible to run multiple instances of Kalvenor Pro at the same time.</source>
        <translation>It&apos;s not possible to run multiple instances of Kalvenor Pro at the same time.</translation>
    </message>
    <message id="174">
        <source>File &apos;</source>
        <translation>File &apos;</translation>
    </message>
    <message id="175">
        <source>&apos; could not be started with Kalvenor.</source>
        <translation>&apos; could not be started with Kalvenor.</translation>
    </message>
    <message id="176">
        <source>Invalid file</source>
        <translation>Invalid file</translation>
    </message>
    <message id="179">
        <source>Name of activity</source>
        <translation>Name of activity</translation>
    </message>
    <message id="180">
        <source>Source directory</source>
        <translation>Source directory</translation>
    </message>
    <message id="181">
        <source>Destination directory</source>
        <translation>Destination directory</translation>
    </message>
    <message id="182">
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message id="183">
        <source>Initializing, please wait ...</source>
        <translation>Initializing, please wait ...</translation>
    </message>
    <message id="195">
        <source>Should the activity started at once?</source>
        <translation>Should the activity started at once?</translation>
    </message>
    <message id="196">
        <source>Start activity</source>
        <translation>Start activity</translation>
    </message>
    <message id="197">
        <source>Monitoring in process ...</source>
        <translation>Monitoring in process ...</translation>
    </message>
    <message id="198">
        <source>idle</source>
        <translation>idle</translation>
    </message>
    <message id="199">
        <source>For this feature you must be connected directly to the internet.</source>
        <translation>For this feature you must be connected directly to the internet.</translation>
    </message>
    <message id="200">
        <source>Please establish an connection an try again.</source>
        <translation>Please establish an connection an try again.</translation>
    </message>
    <message id="201">
        <source>Can&apos;t find an active DFUE connection</source>
        <translation>Can&apos;t find an active DFUE connection</translation>
    </message>
    <message id="202">
        <source>Really delete the Kalvenor logfile?</source>
        <translation>Really delete the Kalvenor logfile?</translation>
    </message>
    <message id="203">
        <source>Delete Kalvenor logfile</source>
        <translation>Delete Kalvenor logfile</translation>
    </message>
    <message id="204">
        <source>Should the logfile &apos;</source>
        <translation>Should the logfile &apos;</translation>
    </message>
    <message id="205">
        <source>&apos; really be deleted?</source>
        <translation>&apos; really be deleted?</translation>
    </message>
    <message id="206">
        <source>Delete activity logfile</source>
        <translation>Delete activity logfile</translation>
    </message>
    <message id="207">
        <source>There is no logfile for this activity that can be deleted.</source>
        <translation>There is no logfile for this activity that can be deleted.</translation>
    </message>
    <message id="208">
        <source>No logfile found</source>
        <translation>No logfile found</translation>
    </message>
    <message id="209">
        <source>No logfile found for Kalvenor Pro.</source>
        <translation>No logfile found for Kalvenor Pro.</translation>
    </message>
    <message id="210">
        <source>No logfile found for this activity.</source>
        <translation>No logfile found for this activity.</translation>
    </message>
    <message id="211">
        <source>Should the activity &apos;</source>
        <translation>Should the activity &apos;</translation>
    </message>
    <message id="212">
        <source>Delete activity</source>
        <translation>Delete activity</translation>
    </message>
    <message id="215">
        <source>You must add at least one activity to start monitoring.</source>
        <translation>You must add at least one activity to start monitoring.</translation>
    </message>
    <message id="216">
        <source>Start monitoring</source>
        <translation>Start monitoring</translation>
    </message>
    <message id="217">
        <source>You have not selected a directory to monitor. You can&apos;t start monitoring without a valid directory.</source>
        <translation>You have not selected a directory to monitor. You can&apos;t start monitoring without a valid directory.</translation>
    </message>
    <message id="218">
        <source>Monitoring in progress for this activities: &apos;</source>
        <translation>Monitoring in progress for this activities: &apos;</translation>
    </message>
    <message id="219">
        <source>Stop monitoring</source>
        <translation>Stop monitoring</translation>
    </message>
    <message id="220">
        <source>Start monitoring ...</source>
        <translation>Start monitoring ...</translation>
    </message>
    <message id="221">
        <source>Monitoring finished! </source>
        <translation>Monitoring finished! </translation>
    </message>
    <message id="222">
        <source>Activ ...</source>
        <translation>Activ ...</translation>
    </message>
    <message id="223">
        <source>Computer after last activity &apos;</source>
        <translation>Computer after last activity &apos;</translation>
    </message>
    <message id="224">
        <source>&apos; shutted down.</source>
        <translation>&apos; shutted down.</translation>
    </message>
    <message id="225">
        <source>All activities idle, finished monitoring.</source>
        <translation>All activities idle, finished monitoring.</translation>
    </message>
    <message id="226">
        <source>Monitoring &apos;</source>
        <translation>Monitoring &apos;</translation>
    </message>
    <message id="227">
        <source>stopped.</source>
        <translation>stopped.</translation>
    </message>
    <message id="228">
        <source>Stopped activity after once-only execution interval.</source>
        <translation>Stopped activity after once-only execution interval.</translation>
    </message>
    <message id="229">
        <source>Change detected - File/directory:</source>
        <translation>Change detected - File/directory:</translation>
    </message>
    <message id="230">
        <source>New/changed file/directory &apos;</source>
        <translation>New/changed file/directory &apos;</translation>
    </message>
    <message id="231">
        <source>&apos; found.</source>
        <translation>&apos; found.</translation>
    </message>
    <message id="232">
        <source>Change detected</source>
        <translation>Change detected</translation>
    </message>
    <message id="233">
        <source>Executing file: &apos;</source>
        <translation>Executing file: &apos;</translation>
    </message>
    <message id="234">
        <source>File &apos;</source>
        <translation>File &apos;</translation>
    </message>
    <message id="235">
        <source>&apos; could not executed ...</source>
        <translation>&apos; could not executed ...</translation>
    </message>
    <message id="236">
        <source>Checking starts ...</source>
        <translation>Checking starts ...</translation>
    </message>
    <message id="237">
        <source>Directory &apos;</source>
        <translation>Directory &apos;</translation>
    </message>
    <message id="238">
        <source>&apos; not found, monitoring stopped automatically.</source>
        <translation>&apos; not found, monitoring stopped automatically.</translation>
    </message>
    <message id="239">
        <source>&apos; not found, monitoring &apos;</source>
        <translation>&apos; not found, monitoring &apos;</translation>
    </message>
    <message id="240">
        <source>&apos; automatically stopped.</source>
        <translation>&apos; automatically stopped.</translation>
    </message>
    <message id="241">
        <source>E-Mail send to &apos;</source>
        <translation>E-Mail send to &apos;</translation>
    </message>
    <message id="242">
        <source>Checking finished.</source>
        <translation>Checking finished.</translation>
    </message>
    <message id="243">
        <source>Deleting directory &apos;</source>
        <translation>Deleting directory &apos;</translation>
    </message>
    <message id="244">
        <source>- No action selected!</source>
        <translation>- No action selected!</translation>
    </message>
    <message id="245">
        <source>Copying directory &apos;</source>
        <translation>Copying directory &apos;</translation>
    </message>
    <message id="246">
        <source>&apos; to &apos;</source>
        <translation>&apos; to &apos;</translation>
    </message>
    <message id="247">
        <source>Deleting file &apos;</source>
        <translation>Deleting file &apos;</translation>
    </message>
    <message id="248">
        <source>Should the file &apos;</source>
        <translation>Should the file &apos;</translation>
    </message>
    <message id="249">
        <source>replace the file located in the destination directory &apos;</source>
        <translation>replace the file located in the destination directory &apos;</translation>
    </message>
    <message id="250">
        <source>?</source>
        <translation>?</translation>
    </message>
    <message id="251">
        <source>File already exists</source>
        <translation>File already exists</translation>
    </message>
    <message id="252">
        <source>Move &apos;</source>
        <translation>Move &apos;</translation>
    </message>
    <message id="253">
        <source>Copy &apos;</source>
        <translation>Copy &apos;</translation>
    </message>
    <message id="254">
        <source>and overwrite with newer file ...</source>
        <translation>and overwrite with newer file ...</translation>
    </message>
    <message id="255">
        <source>Overwrite from file &apos;</source>
        <translation>Overwrite from file &apos;</translation>
    </message>
    <message id="256">
        <source>&apos; declined by user.</source>
        <translation>&apos; declined by user.</translation>
    </message>
    <message id="257">
        <source>Move file &apos;</source>
        <translation>Move file &apos;</translation>
    </message>
    <message id="258">
        <source>Copy file &apos;</source>
        <translation>Copy file &apos;</translation>
    </message>
    <message id="259">
        <source>to</source>
        <translation>to</translation>
    </message>
    <message id="260">
        <source>Overwrite &apos;</source>
        <translation>Overwrite &apos;</translation>
    </message>
    <message id="261">
        <source>with &apos;</source>
        <translation>with &apos;</translation>
    </message>
    <message id="262">
        <source>Move and overwrite with newer file &apos;</source>
        <translation>Move and overwrite with newer file &apos;</translation>
    </message>
    <message id="263">
        <source>Copy and overwrite with newer file &apos;</source>
        <translation>Copy and overwrite with newer file &apos;</translation>
    </message>
    <message id="264">
        <source>older/equal as/to file</source>
        <translation>older/equal as/to file</translation>
    </message>
    <message id="265">
        <source>Copy/move from &apos;</source>
        <translation>Copy/move from &apos;</translation>
    </message>
    <message id="266">
        <source>&apos; failed, file is locked from another program!</source>
        <translation>&apos; failed, file is locked from another program!</translation>
    </message>
    <message id="267">
        <source>&apos; failed - Error</source>
        <translation>&apos; failed - Error</translation>
    </message>
    <message id="268">
        <source>Activity &apos;</source>
        <translation>Activity &apos;</translation>
    </message>
    <message id="269">
        <source>Clear whole list with all monitoring activities?</source>
        <translation>Clear whole list with all monitoring activities?</translation>
    </message>
    <message id="270">
        <source>Clear all activities</source>
        <translation>Clear all activities</translation>
    </message>
    <message id="271">
        <source>Default list successfully restored!</source>
        <translation>Default list successfully restored!</translation>
    </message>
    <message id="272">
        <source>Last accessed:</source>
        <translation>Last accessed:</translation>
    </message>
    <message id="273">
        <source>Date and time successfully synchronized!</source>
        <translation>Date and time successfully synchronized!</translation>
    </message>
    <message id="274">
        <source>Synchronization of date &amp; time</source>
        <translation>Synchronization of date &amp; time</translation>
    </message>
    <message id="275">
        <source>E-Mail Service not available (needs Outlook 97 or newer)</source>
        <translation>E-Mail Service not available (needs Outlook 97 or newer)</translation>
    </message>
    <message id="281">
        <source>The selected source directory &apos;</source>
        <translation>The selected source directory &apos;</translation>
    </message>
    <message id="282">
        <source>The selected destination directory &apos;</source>
        <translation>The selected destination directory &apos;</translation>
    </message>
    <message id="283">
        <source>The name of an activity should not start with a number.</source>
        <translation>The name of an activity should not start with a number.</translation>
    </message>
    <message id="284">
        <source>Name of the activity</source>
        <translation>Name of the activity</translation>
    </message>
    <message id="285">
        <source>You must enter a name for the activity.</source>
        <translation>You must enter a name for the activity.</translation>
    </message>
    <message id="286">
        <source>The time was entered in an invalid format. Please change to this format &apos;hh:mm&apos;.</source>
        <translation>The time was entered in an invalid format. Please change to this format &apos;hh:mm&apos;.</translation>
    </message>
    <message id="287">
        <source>Format of time invalid</source>
        <translation>Format of time invalid</translation>
    </message>
    <message id="288">
        <source>Please enter file extensions without a point as postfix, e.g. exe;zip;dll.</source>
        <translation>Please enter file extensions without a point as postfix, e.g. exe;zip;dll.</translation>
    </message>
    <message id="289">
        <source>File extensions</source>
        <translation>File extensions</translation>
    </message>
    <message id="290">
        <source>Date invalid</source>
        <translation>Date invalid</translation>
    </message>
    <message id="291">
        <source>The entered date is invalid.</source>
        <translation>The entered date is invalid.</translation>
    </message>
    <message id="292">
        <source>The entered date is in the past.</source>
        <translation>The entered date is in the past.</translation>
    </message>
    <message id="293">
        <source>The entered time is in the past.</source>
        <translation>The entered time is in the past.</translation>
    </message>
    <message id="294">
        <source>You have selected the windows directory for monitoring.</source>
        <translation>You have selected the windows directory for monitoring.</translation>
    </message>
    <message id="295">
        <source>May your windows installation could be destroyed!</source>
        <translation>May your windows installation could be destroyed!</translation>
    </message>
    <message id="296">
        <source>Do you really want to proceed?</source>
        <translation>Do you really want to proceed?</translation>
    </message>
    <message id="297">
        <source>Windows directory selected</source>
        <translation>Windows directory selected</translation>
    </message>
    <message id="298">
        <source>You have selected the windows system directory for monitoring.</source>
        <translation>You have selected the windows system directory for monitoring.</translation>
    </message>
    <message id="299">
        <source>Windows system directory selected</source>
        <translation>Windows system directory selected</translation>
    </message>
    <message id="300">
        <source>You have selected the windows installation root directory.</source>
        <translation>You have selected the windows installation root directory.</translation>
    </message>
    <message id="301">
        <source>Windows root directory selected</source>
        <translation>Windows root directory selected</translation>
    </message>
    <message id="302">
        <source>To send E-Mail you must select an recipient.</source>
        <translation>To send E-Mail you must select an recipient.</translation>
    </message>
    <message id="303">
        <source>E-Mail adress invalid</source>
        <translation>E-Mail adress invalid</translation>
    </message>
    <message id="304">
        <source>You want to use the E-Mail notification but have not entered an subject.</source>
        <translation>You want to use the E-Mail notification but have not entered an subject.</translation>
    </message>
    <message id="305">
        <source>No subject entered</source>
        <translation>No subject entered</translation>
    </message>
    <message id="308">
        <source>Could not read the Outlook contacts.</source>
        <translation>Could not read the Outlook contacts.</translation>
    </message>
    <message id="309">
        <source>You can enter an recipient manual in the textfield.</source>
        <translation>You can enter an recipient manual in the textfield.</translation>
    </message>
    <message id="310">
        <source>Outlook contacts</source>
        <translation>Outlook contacts</translation>
    </message>
    <message id="317">
        <source>To save the activity with new name select &apos;Yes&apos;, for creating a new activity press &quot;No&apos;:</source>
        <translation>To save the activity with new name select &apos;Yes&apos;, for creating a new activity press &quot;No&apos;:</translation>
    </message>
    <message id="318">
        <source>Save activity</source>
        <translation>Save activity</translation>
    </message>
    <message id="326">
        <source>incl. last accessed info</source>
        <translation>incl. last accessed info</translation>
    </message>
    <message id="328">
        <source>incl. file from last access</source>
        <translation>incl. file from last access</translation>
    </message>
    <message id="336">
        <source>Interval settings</source>
        <translation>Interval settings</translation>
    </message>
    <message id="337">
        <source>Seconds</source>
        <translation>Seconds</translation>
    </message>
    <message id="338">
        <source>Minutes</source>
        <translation>Minutes</translation>
    </message>
    <message id="339">
        <source>Hours</source>
        <translation>Hours</translation>
    </message>
    <message id="340">
        <source>Interval only once-time exectution, then stop activity</source>
        <translation>Interval only once-time exectution, then stop activity</translation>
    </message>
    <message id="341">
        <source>Comment to activity</source>
        <translation>Comment to activity</translation>
    </message>
    <message id="342">
        <source>Select date</source>
        <translation>Select date</translation>
    </message>
    <message id="343">
        <source>Daily</source>
        <translation>Daily</translation>
    </message>
    <message id="344">
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message id="345">
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message id="347">
        <source>Copy files</source>
        <translation>Copy files</translation>
    </message>
    <message id="348">
        <source>Move files</source>
        <translation>Move files</translation>
    </message>
    <message id="349">
        <source>Mirror directory</source>
        <translation>Mirror directory</translation>
    </message>
    <message id="350">
        <source>No action</source>
        <translation>No action</translation>
    </message>
    <message id="351">
        <source>Overwrite files without asking</source>
        <translation>Overwrite files without asking</translation>
    </message>
    <message id="352">
        <source>Observe only newer files</source>
        <translation>Observe only newer files</translation>
    </message>
    <message id="353">
        <source>Message/PopUp by changes</source>
        <translation>Message/PopUp by changes</translation>
    </message>
    <message id="354">
        <source>incl. subfolders</source>
        <translation>incl. subfolders</translation>
    </message>
    <message id="355">
        <source>Execute by changes:</source>
        <translation>Execute by changes:</translation>
    </message>
    <message id="356">
        <source>Logfile of activity:</source>
        <translation>Logfile of activity:</translation>
    </message>
    <message id="357">
        <source>Select programs/scripts</source>
        <translation>Select programs/scripts</translation>
    </message>
    <message id="358">
        <source>Select logfile</source>
        <translation>Select logfile</translation>
    </message>
    <message id="360">
        <source>Observed file types:</source>
        <translation>Observed file types:</translation>
    </message>
    <message id="361">
        <source>All</source>
        <translation>All</translation>
    </message>
    <message id="362">
        <source>Only this:</source>
        <translation>Only this:</translation>
    </message>
    <message id="364">
        <source>Use SMTP host for mail sending:</source>
        <translation>Use SMTP host for mail sending:</translation>
    </message>
    <message id="366">
        <source>To send E-Mail you must select an sender.</source>
        <translation>To send E-Mail you must select an sender.</translation>
    </message>
    <message id="368">
        <source>incl. Computername in E-Mail message</source>
        <translation>incl. Computername in E-Mail message</translation>
    </message>
    <message id="369">
        <source>from system (name)</source>
        <translation>from system (name)</translation>
    </message>
    <message id="370">
        <source>Please check the E-Mail address.</source>
        <translation>Please check the E-Mail address.</translation>
    </message>
    <message id="371">
        <source>Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will not be deleted but get the extension .OLD)?</source>
        <translation>Configuration file ist corrupted or invalid. Do you want to create a new empty file (the old file will not be deleted but get the extension .OLD)?</translation>
    </message>
    <message id="372">
        <source>The current file cannot be imported again!</source>
        <translation>The current file cannot be imported again!</translation>
    </message>
    <message id="373">
        <source>The file is in use and can&apos;t be overwritten.</source>
        <translation>The file is in use and can&apos;t be overwritten.</translation>
    </message>
    <message id="374">
        <source>Text not found!</source>
        <translation>Text not found!</translation>
    </message>
    <message id="375">
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message id="376">
        <source>Text to search:</source>
        <translation>Text to search:</translation>
    </message>
    <message id="377">
        <source>Match ca&amp;se</source>
        <translation>Match ca&amp;se</translation>
    </message>
    <message id="378">
        <source>Search again</source>
        <translation>Search again</translation>
    </message>
    <message id="380">
        <source>You have not entered any file types.</source>
        <translation>You have not entered any file types.</translation>
    </message>
    <message id="381">
        <source>Refresh</source>
        <translation>Refresh</translation>
    </message>
    <message id="383">
        <source>Execute all selected activities</source>
        <translation>Execute all selected activities</translation>
    </message>
    <message id="384">
        <source>Should the marked activities started at once now?</source>
        <translation>Should the marked activities started at once now?</translation>
    </message>
    <message id="385">
        <source>Start activities</source>
        <translation>Start activities</translation>
    </message>
    <message id="386">
        <source>The action can&apos;t be saved because another action with the same name already exists! Please change the name of this activity!</source>
        <translation>The action can&apos;t be saved because another action with the same name already exists! Please change the name of this activity!</translation>
    </message>
    <message id="387">
        <source>Count executions</source>
        <translation>Count executions</translation>
    </message>
    <message id="388">
        <source>Write logfile</source>
        <translation>Write logfile</translation>
    </message>
    <message id="389">
        <source>Executable files</source>
        <translation>Executable files</translation>
    </message>
    <message id="390">
        <source>File extensions</source>
        <translation>File extensions</translation>
    </message>
    <message id="394">
        <source>All</source>
        <translation>All</translation>
    </message>
    <message id="395">
        <source>Last execution</source>
        <translation>Last execution</translation>
    </message>
    <message id="396">
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message id="397">
        <source>Time format is invalid, please reenter!</source>
        <translation>Time format is invalid, please reenter!</translation>
    </message>
    <message id="398">
        <source>Open source dir. in Explorer</source>
        <translation>Open source dir. in Explorer</translation>
    </message>
    <message id="399">
        <source>Open target dir. in Explorer</source>
        <translation>Open target dir. in Explorer</translation>
    </message>
    <message id="403">
        <source>Abort</source>
        <translation>Abort</translation>
    </message>
    <message id="404">
        <source>Aborted by user while processing action!</source>
        <translation>Aborted by user while processing action!</translation>
    </message>
    <message id="405">
        <source>Activate &quot;SafeExit&quot; while processing by &apos;F8&apos; key</source>
        <translation>Activate &quot;SafeExit&quot; while processing by &apos;F8&apos; key</translation>
    </message>
    <message id="406">
        <source>Check for update ...</source>
        <translation>Check for update ...</translation>
    </message>
    <message id="407">
        <source>A new version (</source>
        <translation>A new version (</translation>
    </message>
    <message id="408">
        <source>) is available.</source>
        <translation>) is available.</translation>
    </message>
    <message id="409">
        <source>Do you want to visit the download page?</source>
        <translation>Do you want to visit the download page?</translation>
    </message>
    <message id="410">
        <source>Update</source>
        <translation>Update</translation>
    </message>
    <message id="411">
        <source>The latest version of the application is installed, no update available.</source>
        <translation>The latest version of the application is installed, no update available.</translation>
    </message>
    <message id="412">
        <source>Service installed successfull.</source>
        <translation>Service installed successfull.</translation>
    </message>
    <message id="413">
        <source>Service installation failed.</source>
        <translation>Service installation failed.</translation>
    </message>
    <message id="414">
        <source>Service uninstalled successfull.</source>
        <translation>Service uninstalled successfull.</translation>
    </message>
    <message id="415">
        <source>Service uninstall failed.</source>
        <translation>Service uninstall failed.</translation>
    </message>
    <message id="416">
        <source>Unknown service parameter.</source>
        <translation>Unknown service parameter.</translation>
    </message>
    <message id="417">
        <source>Kalvenor service configuration</source>
        <translation>Kalvenor service configuration</translation>
    </message>
    <message id="419">
        <source>Service continued</source>
        <translation>Service continued</translation>
    </message>
    <message id="420">
        <source>paused</source>
        <translation>paused</translation>
    </message>
    <message id="421">
        <source>Start service</source>
        <translation>Start service</translation>
    </message>
    <message id="422">
        <source>Stop service</source>
        <translation>Stop service</translation>
    </message>
    <message id="423">
        <source>Install service</source>
        <translation>Install service</translation>
    </message>
    <message id="424">
        <source>Uninstall service</source>
        <translation>Uninstall service</translation>
    </message>
    <message id="425">
        <source>Application will be closed to stop service.</source>
        <translation>Application will be closed to stop service.</translation>
    </message>
    <message id="426">
        <source>Application will be closed to start service.</source>
        <translation>Application will be closed to start service.</translation>
    </message>
    <message id="427">
        <source>Note: For further configuration of the service please read the manual.</source>
        <translation>Note: For further configuration of the service please read the manual.</translation>
    </message>
    <message id="428">
        <source>Service settings</source>
        <translation>Service settings</translation>
    </message>
    <message id="429">
        <source>Stop action, if directory doesn&apos;t exist</source>
        <translation>Stop action, if directory doesn&apos;t exist</translation>
    </message>
    <message id="430">
        <source>&apos; not found, monitoring suspended for this interval.</source>
        <translation>&apos; not found, monitoring suspended for this interval.</translation>
    </message>
    <message id="431">
        <source>&apos; suspended for this interval.</source>
        <translation>&apos; suspended for this interval.</translation>
    </message>
</context>
<context>
    <name>Own texts</name>
    <message id="322">
        <source>Recipient:</source>
        <translation>Recipient:</translation>
    </message>
    <message id="323">
        <source>Subject:</source>
        <translation>Subject:</translation>
    </message>
    <message id="418">
        <source>Service </source>
        <translation>Service </translation>
    </message>
    <message id="432">
        <source>The activity file was changed on disk by another program. Nothing was saved.</source>
        <translation>The activity file was changed on disk by another program. Nothing was saved.</translation>
    </message>
    <message id="433">
        <source>The activity file could not be loaded, so nothing can be saved to it.</source>
        <translation>The activity file could not be loaded, so nothing can be saved to it.</translation>
    </message>
    <message id="434">
        <source>The activity file could not be saved:</source>
        <translation>The activity file could not be saved:</translation>
    </message>
    <message id="435">
        <source>The damaged activity file could not be moved away:</source>
        <translation>The damaged activity file could not be moved away:</translation>
    </message>
    <message id="436">
        <source>The activity file could not be created:</source>
        <translation>The activity file could not be created:</translation>
    </message>
    <message id="437">
        <source>Another process already works on this activity file. Monitoring was not started.</source>
        <translation>Another process already works on this activity file. Monitoring was not started.</translation>
    </message>
    <message id="438">
        <source>Activities: %1, active: %2</source>
        <translation>Activities: %1, active: %2</translation>
    </message>
    <message id="439">
        <source>To accept this notice, start Kalvenor once with a window, or set Accepted=Yes under [Options] in the settings file</source>
        <translation>To accept this notice, start Kalvenor once with a window, or set Accepted=Yes under [Options] in the settings file</translation>
    </message>
    <message id="440">
        <source>Monitoring is off: the option &quot;After start immediately start monitoring&quot; is not set.</source>
        <translation>Monitoring is off: the option &quot;After start immediately start monitoring&quot; is not set.</translation>
    </message>
    <message id="443">
        <source>The activity file could not be read:</source>
        <translation>The activity file could not be read:</translation>
    </message>
    <message id="445">
        <source>&amp;Activity</source>
        <translation>&amp;Activity</translation>
    </message>
    <message id="446">
        <source>&amp;Yes</source>
        <translation>&amp;Yes</translation>
    </message>
    <message id="447">
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
    <message id="448">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="449">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="450">
        <source>Runs activities of an activity file once, now.</source>
        <translation>Runs activities of an activity file once, now.</translation>
    </message>
    <message id="451">
        <source>Path of the activity file.</source>
        <translation>Path of the activity file.</translation>
    </message>
    <message id="452">
        <source>Names of the activities to run, in this order; without a name every active one.</source>
        <translation>Names of the activities to run, in this order; without a name every active one.</translation>
    </message>
    <message id="453">
        <source>The activity file '%1' has no activity '%2'.</source>
        <translation>The activity file '%1' has no activity '%2'.</translation>
    </message>
    <message id="454">
        <source>Another process works on the activity file '%1'. Nothing was run.</source>
        <translation>Another process works on the activity file '%1'. Nothing was run.</translation>
    </message>
    <message id="460">
        <source>New activity</source>
        <translation>New activity</translation>
    </message>
    <message id="461">
        <source>Properties of &apos;%1&apos;</source>
        <translation>Properties of &apos;%1&apos;</translation>
    </message>
    <message id="462">
        <source>&amp;Directories</source>
        <translation>&amp;Directories</translation>
    </message>
    <message id="463">
        <source>&amp;Schedule</source>
        <translation>&amp;Schedule</translation>
    </message>
    <message id="464">
        <source>&amp;Action</source>
        <translation>&amp;Action</translation>
    </message>
    <message id="465">
        <source>E-&amp;mail</source>
        <translation>E-&amp;mail</translation>
    </message>
    <message id="466">
        <source>Activity is &amp;enabled</source>
        <translation>Activity is &amp;enabled</translation>
    </message>
    <message id="467">
        <source>Select source directory</source>
        <translation>Select source directory</translation>
    </message>
    <message id="468">
        <source>Select destination directory</source>
        <translation>Select destination directory</translation>
    </message>
    <message id="469">
        <source>Source directories used before</source>
        <translation>Source directories used before</translation>
    </message>
    <message id="470">
        <source>Destination directories used before</source>
        <translation>Destination directories used before</translation>
    </message>
    <message id="472">
        <source>Fixed time</source>
        <translation>Fixed time</translation>
    </message>
    <message id="473">
        <source>On&amp;ce, on this date:</source>
        <translation>On&amp;ce, on this date:</translation>
    </message>
    <message id="474">
        <source>At this &amp;time of day:</source>
        <translation>At this &amp;time of day:</translation>
    </message>
    <message id="475">
        <source>DMY</source>
        <translation>DMY</translation>
    </message>
    <message id="476">
        <source>Reactions</source>
        <translation>Reactions</translation>
    </message>
    <message id="477">
        <source>e.g. exe;zip;dll</source>
        <translation>e.g. exe;zip;dll</translation>
    </message>
    <message id="478">
        <source>&amp;Notify by e-mail after each run</source>
        <translation>&amp;Notify by e-mail after each run</translation>
    </message>
    <message id="479">
        <source>S&amp;ender:</source>
        <translation>S&amp;ender:</translation>
    </message>
    <message id="480">
        <source>Co&amp;py to:</source>
        <translation>Co&amp;py to:</translation>
    </message>
    <message id="481">
        <source>Message te&amp;xt:</source>
        <translation>Message te&amp;xt:</translation>
    </message>
    <message id="482">
        <source>attach the &amp;logfile</source>
        <translation>attach the &amp;logfile</translation>
    </message>
    <message id="483">
        <source>Load &amp;contacts</source>
        <translation>Load &amp;contacts</translation>
    </message>
    <message id="484">
        <source>This name cannot be used. A name begins with a letter or &quot;_&quot; and holds only letters, digits, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;; blanks are not possible. Letters must exist in the character set of the activity file.</source>
        <translation>This name cannot be used. A name begins with a letter or &quot;_&quot; and holds only letters, digits, &quot;-&quot;, &quot;_&quot; and &quot;.&quot;; blanks are not possible. Letters must exist in the character set of the activity file.</translation>
    </message>
    <message id="485">
        <source>No mail program was found whose contacts can be read.</source>
        <translation>No mail program was found whose contacts can be read.</translation>
    </message>
    <message id="486">
        <source>No mail program was found that could send the mail. Without the SMTP host no mail is sent.</source>
        <translation>No mail program was found that could send the mail. Without the SMTP host no mail is sent.</translation>
    </message>
    <message id="487">
        <source>empty: the mail host of the recipient</source>
        <translation>empty: the mail host of the recipient</translation>
    </message>
    <message id="600">
        <source>a run failed</source>
        <translation>a run failed</translation>
    </message>
    <message id="601">
        <source>%1: %2 files, %3</source>
        <translation>%1: %2 files, %3</translation>
    </message>
    <message id="520">
        <source>The entry that starts Kalvenor with your session could not be changed:</source>
        <translation>The entry that starts Kalvenor with your session could not be changed:</translation>
    </message>
    <message id="521">
        <source>Only the last %1 MiB of this logfile are shown.</source>
        <translation>Only the last %1 MiB of this logfile are shown.</translation>
    </message>
    <message id="522">
        <source>The logfile could not be read:</source>
        <translation>The logfile could not be read:</translation>
    </message>
    <message id="523">
        <source>The logfile could not be deleted:</source>
        <translation>The logfile could not be deleted:</translation>
    </message>
    <message id="524">
        <source>The options could not be stored:</source>
        <translation>The options could not be stored:</translation>
    </message>
    <message id="525">
        <source>&amp;Cancel</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message id="526">
        <source>The web page %1 could not be opened.</source>
        <translation>The web page %1 could not be opened.</translation>
    </message>
    <message id="527">
        <source>About Kalvenor Pro</source>
        <translation>About Kalvenor Pro</translation>
    </message>
    <message id="528">
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message id="529">
        <source>This program comes without any warranty. Its use is subject to the license terms and conditions in the manual.

It uses Qt under the GNU Lesser General Public License, version 3, and libxml2 under the MIT License.</source>
        <translation>This program comes without any warranty. Its use is subject to the license terms and conditions in the manual.

It uses Qt under the GNU Lesser General Public License, version 3, and libxml2 under the MIT License.</translation>
    </message>
    <message id="530">
        <source>&amp;System information ...</source>
        <translation>&amp;System information ...</translation>
    </message>
    <message id="531">
        <source>C&amp;lose</source>
        <translation>C&amp;lose</translation>
    </message>
    <message id="532">
        <source>&amp;Copy</source>
        <translation>&amp;Copy</translation>
    </message>
    <message id="533">
        <source>Program</source>
        <translation>Program</translation>
    </message>
    <message id="534">
        <source>Qt</source>
        <translation>Qt</translation>
    </message>
    <message id="535">
        <source>Operating system</source>
        <translation>Operating system</translation>
    </message>
    <message id="536">
        <source>Kernel</source>
        <translation>Kernel</translation>
    </message>
    <message id="537">
        <source>Architecture</source>
        <translation>Architecture</translation>
    </message>
    <message id="538">
        <source>Processors</source>
        <translation>Processors</translation>
    </message>
    <message id="539">
        <source>Memory</source>
        <translation>Memory</translation>
    </message>
    <message id="540">
        <source>Display</source>
        <translation>Display</translation>
    </message>
    <message id="541">
        <source>Program folder</source>
        <translation>Program folder</translation>
    </message>
    <message id="542">
        <source>Data folder</source>
        <translation>Data folder</translation>
    </message>
    <message id="543">
        <source>Activity file</source>
        <translation>Activity file</translation>
    </message>
    <message id="544">
        <source>Logfile</source>
        <translation>Logfile</translation>
    </message>
    <message id="545">
        <source>The folder &apos;%1&apos; could not be opened.</source>
        <translation>The folder &apos;%1&apos; could not be opened.</translation>
    </message>
    <message id="580">
        <source>The service manager could not be started.</source>
        <translation>The service manager could not be started.</translation>
    </message>
    <message id="581">
        <source>The time server did not answer in time.</source>
        <translation>The time server did not answer in time.</translation>
    </message>
    <message id="582">
        <source>The answer of the time server is no time.</source>
        <translation>The answer of the time server is no time.</translation>
    </message>
    <message id="583">
        <source>Kalvenor activities</source>
        <translation>Kalvenor activities</translation>
    </message>
    <message id="584">
        <source>The computer could not be switched off.</source>
        <translation>The computer could not be switched off.</translation>
    </message>
    <message id="585">
        <source>No lock could be made in the folder for the state of programs ($XDG_STATE_HOME, normally ~/.local/state), so another process may be at work on the same files. Nothing was started.</source>
        <translation>No lock could be made in the folder for the state of programs ($XDG_STATE_HOME, normally ~/.local/state), so another process may be at work on the same files. Nothing was started.</translation>
    </message>
    <message id="586">
        <source>Another process works on this activity file. Nothing was saved to it.</source>
        <translation>Another process works on this activity file. Nothing was saved to it.</translation>
    </message>
    <message id="587">
        <source>Starting monitoring is tried again every minute.</source>
        <translation>Starting monitoring is tried again every minute.</translation>
    </message>
    <message id="588">
        <source>All activities have ended. The computer will be switched off.</source>
        <translation>All activities have ended. The computer will be switched off.</translation>
    </message>
    <message id="589">
        <source>Seconds left: %1</source>
        <translation>Seconds left: %1</translation>
    </message>
    <message id="590">
        <source>The computer was not switched off: it was cancelled, or work has begun again.</source>
        <translation>The computer was not switched off: it was cancelled, or work has begun again.</translation>
    </message>
    <message id="610">
        <source>'%1' is left alone: it belongs to Kalvenor.</source>
        <translation>'%1' is left alone: it belongs to Kalvenor.</translation>
    </message>
    <message id="611">
        <source>Nothing is deleted in '%1': another file system is mounted there.</source>
        <translation>Nothing is deleted in '%1': another file system is mounted there.</translation>
    </message>
    <message id="612">
        <source>Directory '%1' is left alone: it is or contains a directory of this activity.</source>
        <translation>Directory '%1' is left alone: it is or contains a directory of this activity.</translation>
    </message>
    <message id="613">
        <source>Directory '%1' is left alone: it lies more than 1,000 levels deep.</source>
        <translation>Directory '%1' is left alone: it lies more than 1,000 levels deep.</translation>
    </message>
    <message id="614">
        <source>Run ended early: the program is closing.</source>
        <translation>Run ended early: the program is closing.</translation>
    </message>
    <message id="615">
        <source>Run ended early: monitoring was stopped.</source>
        <translation>Run ended early: monitoring was stopped.</translation>
    </message>
    <message id="616">
        <source>Run ended early: the activity was changed, or another activity file was opened.</source>
        <translation>Run ended early: the activity was changed, or another activity file was opened.</translation>
    </message>
    <message id="617">
        <source>Run ended early: a directory of the activity is no longer there.</source>
        <translation>Run ended early: a directory of the activity is no longer there.</translation>
    </message>
    <message id="618">
        <source>Run ended early: nothing is deleted when a directory cannot be read.</source>
        <translation>Run ended early: nothing is deleted when a directory cannot be read.</translation>
    </message>
    <message id="619">
        <source>Run ended early: a directory was replaced by another one.</source>
        <translation>Run ended early: a directory was replaced by another one.</translation>
    </message>
    <message id="620">
        <source>'%1' belongs to Kalvenor itself and cannot be the log file of an activity.</source>
        <translation>'%1' belongs to Kalvenor itself and cannot be the log file of an activity.</translation>
    </message>
    <message id="630">
        <source>Not sent: the program is closing.</source>
        <translation>Not sent: the program is closing.</translation>
    </message>
    <message id="631">
        <source>Not sent: %1 later e-mails of this activity are waiting.</source>
        <translation>Not sent: %1 later e-mails of this activity are waiting.</translation>
    </message>
    <message id="632">
        <source>'%1' is not attached: %2</source>
        <translation>'%1' is not attached: %2</translation>
    </message>
    <message id="650">
        <source>Load it again now? What is entered in an open form stays there.</source>
        <translation>Load it again now? What is entered in an open form stays there.</translation>
    </message>
    <message id="651">
        <source>The changes are not saved. Drop them?</source>
        <translation>The changes are not saved. Drop them?</translation>
    </message>
    <message id="652">
        <source>An activity is still running. It ends after the present file. Exit anyway?</source>
        <translation>An activity is still running. It ends after the present file. Exit anyway?</translation>
    </message>
    <message id="653">
        <source>'%1' is a directory. Please enter the name of a file.</source>
        <translation>'%1' is a directory. Please enter the name of a file.</translation>
    </message>
    <message id="654">
        <source>Kalvenor Pro Anleitung.en.html</source>
        <translation>Kalvenor Pro Anleitung.en.html</translation>
    </message>
</context>
</TS>
