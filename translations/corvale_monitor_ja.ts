<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>EpicsText</name>
    <message>
        <source>the Channel Access client library (libca) was not found; install the package libca4.13.5, or set EPICS_BASE to the folder of an installation</source>
        <translation>Channel Access クライアントライブラリ (libca) が見つかりません。パッケージ libca4.13.5 をインストールするか、EPICS_BASE にインストール先のフォルダーを設定してください</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be ca:NAME or ca:NAME,NAME with names of process variables</source>
        <translation>「%1」は、プロセス変数の名前を用いて ca:NAME または ca:NAME,NAME の形にしてください</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names %2 process variables; a window shows %3 at most</source>
        <translation>「%1」には %2 個のプロセス変数があります。1 つのウィンドウに表示できるのは %3 個までです</translation>
    </message>
    <message>
        <source>Check the names, that the server runs, and EPICS_CA_ADDR_LIST if it is on another network; caget NAME shows whether this machine reaches it.</source>
        <translation>名前、サーバーが動作していること、サーバーが別のネットワークにある場合は EPICS_CA_ADDR_LIST を確認してください。caget NAME で、このコンピューターから届くかどうかがわかります。</translation>
    </message>
    <message>
        <source>the Channel Access client library does not start</source>
        <translation>Channel Access クライアントライブラリを開始できません</translation>
    </message>
    <message>
        <source>%1: waveforms and single values cannot be read together, and no more than two waveforms; read the others in a window of their own</source>
        <translation>%1: 波形と単一の値は一緒に読み取れず、波形は 2 つまでです。残りは別のウィンドウで読み取ってください</translation>
    </message>
    <message>
        <source>searching for %1</source>
        <translation>%1 を検索しています</translation>
    </message>
    <message>
        <source>%1, without %2, which is not connected</source>
        <translation>%1 (%2 は接続されていません)</translation>
    </message>
    <message>
        <source>no server answers for %1</source>
        <translation>%1 に応答するサーバーがありません</translation>
    </message>
    <message>
        <source>%1 has %2 values; a window shows at most %3</source>
        <translation>%1 の値は %2 個です。ウィンドウに表示できるのは %3 個までです</translation>
    </message>
    <message>
        <source>%1 is not a Channel Access client library that can be used</source>
        <translation>%1 は使用できる Channel Access クライアントライブラリではありません</translation>
    </message>
</context>
<context>
    <name>Monitor::AddSourceAction</name>
    <message>
        <source>&amp;Add source...</source>
        <translation>ソースを追加(&amp;A)...</translation>
    </message>
    <message>
        <source>Add source</source>
        <translation>ソースを追加</translation>
    </message>
</context>
<context>
    <name>Monitor::Appearance</name>
    <message>
        <source>Appea&amp;rance</source>
        <translation>外観(&amp;R)</translation>
    </message>
    <message>
        <source>As the des&amp;ktop</source>
        <translation>デスクトップに合わせる(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>ライト(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>ダーク(&amp;D)</translation>
    </message>
</context>
<context>
    <name>Monitor::Baseline</name>
    <message>
        <source>ZEROED</source>
        <translation>ゼロ補正済み</translation>
    </message>
    <message>
        <source>BACKGROUND SUBTRACTED</source>
        <translation>バックグラウンド差引済み</translation>
    </message>
</context>
<context>
    <name>Monitor::BigNumbers</name>
    <message>
        <source>Big numbers - Corvale Monitor</source>
        <translation>大きな数字 - Corvale Monitor</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>表示(&amp;S):</translation>
    </message>
    <message>
        <source>Beam: position and width</source>
        <translation>ビーム: 位置と幅</translation>
    </message>
    <message>
        <source>No readings</source>
        <translation>測定値なし</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>ビーム</translation>
    </message>
    <message>
        <source>no valid data</source>
        <translation>有効なデータなし</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>シミュレーション</translation>
    </message>
    <message>
        <source>PAUSED</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>更新なし</translation>
    </message>
    <message>
        <source>END</source>
        <translation>終了</translation>
    </message>
</context>
<context>
    <name>Monitor::ClearUndo</name>
    <message>
        <source>&amp;Undo clear</source>
        <translation>消去を元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>元に戻す</translation>
    </message>
</context>
<context>
    <name>Monitor::CommonTape</name>
    <message>
        <source>%1 cannot be played together with others: %2. Open it alone to see what can be read of it</source>
        <translation>%1 は他の記録と一緒に再生できません: %2。単独で開くと、読み取れる部分が表示されます</translation>
    </message>
    <message>
        <source>none of the recordings can be read; open them one by one to see why</source>
        <translation>どの記録も読み取れません。理由を確かめるには 1 つずつ開いてください</translation>
    </message>
</context>
<context>
    <name>Monitor::CompanionPane</name>
    <message>
        <source>The state of this source</source>
        <translation>このソースの状態</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>%1 を閉じる</translation>
    </message>
    <message>
        <source>Close this source; its recording ends</source>
        <translation>このソースを閉じます。その記録は終了します</translation>
    </message>
</context>
<context>
    <name>Monitor::CompanionPanes</name>
    <message>
        <source>Closing the source ends its recording. What was recorded stays in %1.</source>
        <translation>ソースを閉じるとその記録が終了します。記録済みの内容は %1 に残ります。</translation>
    </message>
    <message>
        <source>End the recording?</source>
        <translation>記録を終了しますか?</translation>
    </message>
</context>
<context>
    <name>Monitor::Companions</name>
    <message>
        <source>%1 is a source; record to another file</source>
        <translation>%1 はソースです。別のファイルに記録してください</translation>
    </message>
</context>
<context>
    <name>Monitor::CompressionWait</name>
    <message>
        <source>Compressing the recording</source>
        <translation>記録を圧縮しています</translation>
    </message>
    <message>
        <source>&amp;Quit without compressing</source>
        <translation>圧縮せずに終了(&amp;Q)</translation>
    </message>
    <message>
        <source>%1 is being compressed. Nothing is lost if you do not wait.</source>
        <translation>%1 を圧縮中です。待たなくても何も失われません。</translation>
    </message>
</context>
<context>
    <name>Monitor::ComputedAction</name>
    <message>
        <source>&amp;Computed channels...</source>
        <translation>計算チャンネル(&amp;C)...</translation>
    </message>
    <message>
        <source>Channels that are computed from others: sums, ratios, positions (Ctrl+K).</source>
        <translation>ほかのチャンネルから計算するチャンネル: 和、比、位置 (Ctrl+K)。</translation>
    </message>
</context>
<context>
    <name>Monitor::ComputedDialog</name>
    <message>
        <source>&amp;Remove</source>
        <translation>削除(&amp;R)</translation>
    </message>
    <message>
        <source>What the channel is called in charts, tables and recordings (Alt+N)</source>
        <translation>グラフ、表、記録でのチャンネルの名前 (Alt+N)</translation>
    </message>
    <message>
        <source>The symbol of its unit, such as nA; empty for none (Alt+U)</source>
        <translation>単位の記号 (nA など)。なければ空欄 (Alt+U)</translation>
    </message>
    <message>
        <source>Computed channels</source>
        <translation>計算チャンネル</translation>
    </message>
    <message>
        <source>There is no stream yet. Whether the expressions make sense is seen when one begins.</source>
        <translation>まだデータがありません。式が正しいかどうかは、データが始まったときにわかります。</translation>
    </message>
    <message>
        <source>The stream has %1. An expression is like (A - B) / (A + B), avg(A, B) or fit_position([left plate] .. D).</source>
        <translation>データのチャンネルは %1 です。式の例: (A - B) / (A + B)、avg(A, B)、fit_position([left plate] .. D)。</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>追加(&amp;A)</translation>
    </message>
    <message>
        <source>Add a computed channel (Alt+A)</source>
        <translation>計算チャンネルを追加 (Alt+A)</translation>
    </message>
    <message>
        <source>Remove the selected channel (Alt+R)</source>
        <translation>選んだチャンネルを削除 (Alt+R)</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>名前(&amp;N):</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>単位(&amp;U):</translation>
    </message>
    <message>
        <source>&amp;Expression:</source>
        <translation>式(&amp;E):</translation>
    </message>
    <message>
        <source>+ - * / ^, comparisons, c ? a : b, sum, avg, min, max, sqrt, abs, exp, ln, log10 and others; a name that is not one word stands in brackets (Alt+E)</source>
        <translation>+ - * / ^、比較、c ? a : b、sum、avg、min、max、sqrt、abs、exp、ln、log10 など。一語でない名前は角括弧で囲みます (Alt+E)</translation>
    </message>
    <message>
        <source>New channel</source>
        <translation>新しいチャンネル</translation>
    </message>
    <message>
        <source>there would be more than %1 channels</source>
        <translation>チャンネルが %1 を超えます</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>a name or a unit cannot have the signs =, [ and ]</source>
        <translation>名前と単位に記号 =、[、] は使えません</translation>
    </message>
    <message>
        <source>This stream has no independent channels, from which others are computed.</source>
        <translation>このストリームには、計算の元になる独立したチャンネルがありません。</translation>
    </message>
</context>
<context>
    <name>Monitor::ConnectDialog</name>
    <message>
        <source>&amp;Keep</source>
        <translation>保存(&amp;K)</translation>
    </message>
    <message>
        <source>For&amp;get</source>
        <translation>削除(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Test</source>
        <translation>テスト(&amp;T)</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>接続</translation>
    </message>
    <message>
        <source>Test shows the first lines of the source and what they are read as.</source>
        <translation>テストすると、ソースの最初の数行とその読み取り結果を表示します。</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>接続(&amp;C)</translation>
    </message>
    <message>
        <source>Kind of source</source>
        <translation>ソースの種類</translation>
    </message>
    <message>
        <source>Na&amp;me:</source>
        <translation>名前(&amp;M):</translation>
    </message>
    <message>
        <source>Connections that were kept. Type a name and choose Keep to add one.</source>
        <translation>保存した接続。追加するには名前を入力して「保存」を選びます。</translation>
    </message>
    <message>
        <source>a name for this connection, if it is to be kept</source>
        <translation>この接続を保存する場合の名前</translation>
    </message>
    <message>
        <source>On the command line: corvale-monitor &quot;%1&quot;</source>
        <translation>コマンドラインでは: corvale-monitor &quot;%1&quot;</translation>
    </message>
    <message>
        <source>This source is open: its readings are in the window.</source>
        <translation>このソースは開いています。測定値はウィンドウに表示されています。</translation>
    </message>
    <message>
        <source>Fill in the empty field, to test or to connect.</source>
        <translation>テストまたは接続するには、空の項目を入力してください。</translation>
    </message>
</context>
<context>
    <name>Monitor::CrashNotice</name>
    <message>
        <source>It was recording to %1, and the recording ends there.</source>
        <translation>%1 に記録していましたが、記録はそこで終わっています。</translation>
    </message>
    <message>
        <source>It was recording to %1; the recording goes on in %2.</source>
        <translation>%1 に記録していました。記録は %2 で続いています。</translation>
    </message>
    <message>
        <source>The program crashed at %1 UTC: %2.</source>
        <translation>プログラムは %1 UTC に異常終了しました: %2。</translation>
    </message>
    <message>
        <source>The program that was started at %1 UTC did not end properly: it was killed, or the computer stopped.</source>
        <translation>%1 UTC に起動したプログラムは正常に終了しませんでした。強制終了されたか、コンピューターが停止しました。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Show report</source>
        <translation>レポートを表示</translation>
    </message>
</context>
<context>
    <name>Monitor::DisplayTabs</name>
    <message>
        <source>Scope</source>
        <translation>スコープ</translation>
    </message>
    <message>
        <source>2D profile</source>
        <translation>2D プロファイル</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>スポットマップ</translation>
    </message>
    <message>
        <source>Position errors</source>
        <translation>位置誤差</translation>
    </message>
    <message>
        <source>%1; in all layers %2</source>
        <translation>%1。全レイヤーで %2</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1。%2</translation>
    </message>
</context>
<context>
    <name>Monitor::EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Copy values</source>
        <translation>値をコピー(&amp;C)</translation>
    </message>
    <message>
        <source>C&amp;lear readings...</source>
        <translation>測定値を消去(&amp;L)...</translation>
    </message>
</context>
<context>
    <name>Monitor::ExportActions</name>
    <message>
        <source>Save rea&amp;dings shown...</source>
        <translation>表示中の測定値を保存(&amp;D)...</translation>
    </message>
    <message>
        <source>Save readings between &amp;markers...</source>
        <translation>マーカー間の測定値を保存(&amp;M)...</translation>
    </message>
    <message>
        <source>Save readings</source>
        <translation>測定値を保存</translation>
    </message>
    <message>
        <source>Set both markers in the chart first: switch them on (Ctrl+M), then click with the left and with the right button, or press 1 and 2.</source>
        <translation>先にチャートに両方のマーカーを置いてください。マーカーを有効にし (Ctrl+M)、左ボタンと右ボタンでクリックするか、1 と 2 を押します。</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Saving readings</source>
        <translation>測定値を保存しています</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Only the strip chart and the scope show readings over time. Choose one of them first.</source>
        <translation>時間に沿って測定値を表示するのはストリップチャートとスコープだけです。先にどちらかを選んでください。</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Choose another file.</source>
        <translation>%1 に書き込めません: %2。別のファイルを選んでください。</translation>
    </message>
</context>
<context>
    <name>Monitor::FileForm</name>
    <message>
        <source>&amp;Browse...</source>
        <translation>参照(&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>ファイル(&amp;F):</translation>
    </message>
    <message>
        <source>A recording of this program, a file saved by the library, or a table with a line of names and a line for each time.</source>
        <translation>このプログラムの記録、ライブラリが保存したファイル、または名前の行と時刻ごとの行からなる表。</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Choose a recording</source>
        <translation>記録を選択</translation>
    </message>
    <message>
        <source>Tables (*.csv *.txt *.dat);;All files (*)</source>
        <translation>表 (*.csv *.txt *.dat);;すべてのファイル (*)</translation>
    </message>
</context>
<context>
    <name>Monitor::FileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Open recen&amp;t</source>
        <translation>最近のファイル(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Connect...</source>
        <translation>接続(&amp;C)...</translation>
    </message>
    <message>
        <source>C&amp;lose source</source>
        <translation>ソースを閉じる(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>設定(&amp;S)...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>記録を開く</translation>
    </message>
    <message>
        <source>&amp;Forget these</source>
        <translation>これらを消去(&amp;F)</translation>
    </message>
    <message>
        <source>Recordings and tables (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;All files (*)</source>
        <translation>記録と表 (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Read a&amp;gain as...</source>
        <translation>別の形式で再読込(&amp;G)...</translation>
    </message>
</context>
<context>
    <name>Monitor::FileSource</name>
    <message>
        <source>the file is empty</source>
        <translation>ファイルが空です</translation>
    </message>
    <message>
        <source>it has names or comments, but no row with numbers</source>
        <translation>名前やコメントはありますが、数値の行がありません</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 を開けません: %2</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>%1 の終わりに達しました</translation>
    </message>
    <message>
        <source>reading %1 failed: %2</source>
        <translation>%1 の読み取りに失敗しました: %2</translation>
    </message>
    <message>
        <source>The file must be a recording, a table with one line of names and one line for each time, or HDF5.</source>
        <translation>ファイルは記録、名前の行と時刻ごとの行からなる表、または HDF5 でなければなりません。</translation>
    </message>
    <message>
        <source>Check the path and whether this user may read the file.</source>
        <translation>パスと、このユーザーの読み取り権限を確認してください。</translation>
    </message>
    <message>
        <source>nothing of the file can be read</source>
        <translation>ファイルの内容をまったく読み取れません</translation>
    </message>
</context>
<context>
    <name>Monitor::FirstHint</name>
    <message>
        <source>Do not show again</source>
        <translation>今後表示しない</translation>
    </message>
    <message>
        <source>This beam is simulated.</source>
        <translation>このビームはシミュレーションです。</translation>
    </message>
    <message>
        <source>This is %1.</source>
        <translation>これは %1 です。</translation>
    </message>
    <message>
        <source> File &gt; Open... plays a recording, File &gt; Connect... reads an instrument. Space pauses, Ctrl+R records, F1 shows the first steps.</source>
        <translation>「ファイル &gt; 開く...」で記録を再生、「ファイル &gt; 接続...」で装置を読み取ります。Space で一時停止、Ctrl+R で記録、F1 ではじめにを表示します。</translation>
    </message>
</context>
<context>
    <name>Monitor::FrameFeeder</name>
    <message>
        <source>arb. units</source>
        <translation>任意単位</translation>
    </message>
</context>
<context>
    <name>Monitor::HelpMenu</name>
    <message>
        <source># Keys

Alt and the underlined letter open a menu.

| key | what it does |
|---|---|
</source>
        <translation># キー

Alt と下線付きの文字でメニューを開きます。

| キー | 動作 |
|---|---|
</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>in the scope: saves the readings that are shown</source>
        <translation>スコープで: 表示中の測定値を保存</translation>
    </message>
    <message>
        <source>Left, Right, Delete</source>
        <translation>左、右、Delete</translation>
    </message>
    <message>
        <source>in the scope: moves or removes the markers</source>
        <translation>スコープで: マーカーを移動または削除</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>in the values: shows or hides the channel</source>
        <translation>値の一覧で: チャンネルの表示と非表示を切り替え</translation>
    </message>
    <message>
        <source>Page Up, Page Down</source>
        <translation>Page Up、Page Down</translation>
    </message>
    <message>
        <source>in the spot map: goes through the layers</source>
        <translation>スポットマップで: レイヤーを順に表示</translation>
    </message>
    <message>
        <source>Ctrl+Shift+O</source>
        <translation>Ctrl+Shift+O</translation>
    </message>
    <message>
        <source>moves a display into a separate window, or back</source>
        <translation>表示を別ウィンドウに移す、または戻す</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;First steps</source>
        <translation>はじめに(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>キー(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Line protocol</source>
        <translation>行プロトコル(&amp;L)</translation>
    </message>
    <message>
        <source>L&amp;icences</source>
        <translation>ライセンス(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>このプログラムについて(&amp;A)</translation>
    </message>
    <message>
        <source>+, -; with Ctrl</source>
        <translation>+、-、Ctrl と併用</translation>
    </message>
    <message>
        <source>in the scope: zooms time; zooms the values</source>
        <translation>スコープで: 時間を拡大縮小、値を拡大縮小</translation>
    </message>
    <message>
        <source>Left, Right, Page Up, Page Down, Up, Down</source>
        <translation>左、右、Page Up、Page Down、上、下</translation>
    </message>
    <message>
        <source>in the scope: moves the picture</source>
        <translation>スコープで: 表示範囲を移動</translation>
    </message>
    <message>
        <source>Home, End</source>
        <translation>Home、End</translation>
    </message>
    <message>
        <source>in the scope: the oldest readings, the newest ones</source>
        <translation>スコープで: 最も古い測定値、最新の測定値</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>in the scope: what was shown before</source>
        <translation>スコープで: 前の表示に戻る</translation>
    </message>
    <message>
        <source>1, 2</source>
        <translation>1、2</translation>
    </message>
    <message>
        <source>in the scope: places the markers</source>
        <translation>スコープで: マーカーを置く</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>in the scope: copies what the markers read</source>
        <translation>スコープで: マーカーの読みをコピー</translation>
    </message>
    <message>
        <source>on the time line: plays or pauses the tape</source>
        <translation>タイムライン上で: テープを再生または一時停止</translation>
    </message>
    <message>
        <source>Left, Right; with Shift</source>
        <translation>左、右、Shift と併用</translation>
    </message>
    <message>
        <source>on the time line: 1 % or 10 % of the tape back or on</source>
        <translation>タイムライン上で: テープの 1 % または 10 % だけ前後に移動</translation>
    </message>
    <message>
        <source>on the time line: the event or gap before or after</source>
        <translation>タイムライン上で: 前後のイベントまたは欠落</translation>
    </message>
    <message>
        <source>comma, period</source>
        <translation>コンマ、ピリオド</translation>
    </message>
    <message>
        <source>on the time line: one reading back or on, and pauses</source>
        <translation>タイムライン上で: 測定値を一つ前後に移動して一時停止</translation>
    </message>
    <message>
        <source>[, ], Backspace</source>
        <translation>[、]、Backspace</translation>
    </message>
    <message>
        <source>on the time line: repeats from here, up to here, nothing</source>
        <translation>タイムライン上で: ここから繰り返す、ここまで繰り返す、繰り返さない</translation>
    </message>
</context>
<context>
    <name>Monitor::HelpWindow</name>
    <message>
        <source>First steps</source>
        <extracomment>The name of the file with this page: first-steps.de.md in German.</extracomment>
        <translation>はじめに</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>Line protocol</source>
        <translation>行プロトコル</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>ライセンス</translation>
    </message>
    <message>
        <source>About Corvale Monitor</source>
        <translation>Corvale Monitor について</translation>
    </message>
    <message>
        <source>first-steps.md</source>
        <translation>first-steps.ja.md</translation>
    </message>
    <message>
        <source># Corvale Monitor %1

Shows the readings of instruments that measure beams of charged particles.

Free software under LGPL-2.1-or-later; *Help &gt; Licences* has the text. It runs on %2.</source>
        <translation># Corvale Monitor %1

荷電粒子ビームを測定する機器の測定値を表示します。

LGPL-2.1-or-later の自由ソフトウェアです。全文は*ヘルプ &gt; ライセンス*にあります。動作環境は %2 です。</translation>
    </message>
    <message>
        <source>| part | version | licence |
|---|---|---|
</source>
        <translation>| 構成要素 | バージョン | ライセンス |
|---|---|---|
</translation>
    </message>
</context>
<context>
    <name>Monitor::ImportDialog</name>
    <message>
        <source>How is %1 read?</source>
        <translation>%1 の読み取り方</translation>
    </message>
    <message>
        <source>This table is read as it is.</source>
        <translation>この表はそのまま読み取ります。</translation>
    </message>
    <message>
        <source>This is not a recording of the monitor: %1.</source>
        <translation>モニターの記録ではありません: %1。</translation>
    </message>
    <message>
        <source>&amp;Columns are separated by:</source>
        <translation>列の区切り(&amp;C):</translation>
    </message>
    <message>
        <source>commas, or blanks</source>
        <translation>コンマまたは空白</translation>
    </message>
    <message>
        <source>commas</source>
        <translation>コンマ</translation>
    </message>
    <message>
        <source>semicolons</source>
        <translation>セミコロン</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>タブ</translation>
    </message>
    <message>
        <source>blanks</source>
        <translation>空白</translation>
    </message>
    <message>
        <source>bars</source>
        <translation>縦棒</translation>
    </message>
    <message>
        <source>&amp;Decimal sign:</source>
        <translation>小数点の記号(&amp;D):</translation>
    </message>
    <message>
        <source>point: 1.25</source>
        <translation>ピリオド: 1.25</translation>
    </message>
    <message>
        <source>comma: 1,25</source>
        <translation>コンマ: 1,25</translation>
    </message>
    <message>
        <source>&amp;Names of columns:</source>
        <translation>列の名前(&amp;N):</translation>
    </message>
    <message>
        <source>in the first line, if it is not all numbers</source>
        <translation>最初の行 (数値だけでない場合)</translation>
    </message>
    <message>
        <source>in the first line</source>
        <translation>最初の行</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>&amp;Time:</source>
        <translation>時刻(&amp;T):</translation>
    </message>
    <message>
        <source>Which column holds the time of a row, or that none does</source>
        <translation>行の時刻がどの列にあるか、またはないか</translation>
    </message>
    <message>
        <source>in the column with such a name</source>
        <translation>時刻の名前を持つ列</translation>
    </message>
    <message>
        <source>in the column with this number</source>
        <translation>この番号の列</translation>
    </message>
    <message>
        <source>in no column; rows are equally spaced</source>
        <translation>列なし (行は等間隔)</translation>
    </message>
    <message>
        <source>Co&amp;lumn of the time:</source>
        <translation>時刻の列(&amp;L):</translation>
    </message>
    <message>
        <source>Time &amp;between two rows:</source>
        <translation>行と行の間隔(&amp;B):</translation>
    </message>
    <message>
        <source>For a table without times, like 1ms, 0.02s or 1min</source>
        <translation>時刻のない表の場合。例: 1ms、0.02s、1min</translation>
    </message>
    <message>
        <source>Times &amp;are:</source>
        <translation>時刻の形式(&amp;A):</translation>
    </message>
    <message>
        <source>numbers, in seconds or the unit of the name</source>
        <translation>数値 (秒、または名前にある単位)</translation>
    </message>
    <message>
        <source>dates; UTC where no zone is written</source>
        <translation>日時 (時間帯の記載がなければ UTC)</translation>
    </message>
    <message>
        <source>dates; local time where no zone is written</source>
        <translation>日時 (時間帯の記載がなければ現地時刻)</translation>
    </message>
    <message>
        <source>&amp;Form of dates:</source>
        <translation>日時の書式(&amp;F):</translation>
    </message>
    <message>
        <source>Empty for ISO 8601 (2026-03-01T12:00:00.5), or like dd.MM.yyyy HH:mm:ss.zzz</source>
        <translation>空なら ISO 8601 (2026-03-01T12:00:00.5)。または dd.MM.yyyy HH:mm:ss.zzz など</translation>
    </message>
    <message>
        <source>Lines to &amp;skip first:</source>
        <translation>最初に読み飛ばす行数(&amp;S):</translation>
    </message>
    <message>
        <source>Co&amp;mments begin with:</source>
        <translation>コメントの開始記号(&amp;M):</translation>
    </message>
    <message>
        <source>One sign; # always begins one</source>
        <translation>1 文字。# は常にコメントです</translation>
    </message>
    <message>
        <source>The first rows as they will be read</source>
        <translation>最初の数行の読み取り結果</translation>
    </message>
    <message>
        <source>Please state the time between two rows, for example 1ms.</source>
        <translation>行と行の間隔を指定してください (例: 1ms)。</translation>
    </message>
    <message>
        <source>It cannot be read this way: %1.</source>
        <translation>この設定では読めません: %1。</translation>
    </message>
    <message>
        <source>None of its rows can be read this way; the first is %1</source>
        <translation>この設定ではどの行も読めません。最初の行: %1</translation>
    </message>
    <message>
        <source>It contains no rows.</source>
        <translation>行がありません。</translation>
    </message>
    <message>
        <source>%1 of the first lines cannot be read this way; the first is %2</source>
        <translation>最初の行のうち %1 行がこの設定では読めません。最初のものは %2</translation>
    </message>
    <message>
        <source>All of the first rows can be read.</source>
        <translation>最初の行はすべて読めます。</translation>
    </message>
    <message>
        <source>All of the first rows can be read. The time 0 is %1 (UTC).</source>
        <translation>最初の行はすべて読めます。時刻 0 は %1 (UTC) です。</translation>
    </message>
    <message>
        <source>On the command line: --import &quot;%1&quot;</source>
        <translation>コマンドラインでは: --import &quot;%1&quot;</translation>
    </message>
    <message>
        <source>The table is read again from its beginning. It has no line of names by which others of its kind are known, so the answer holds for this time.</source>
        <translation>表を先頭から読み直します。同種の表を見分ける名前の行がないため、この回答は今回だけ有効です。</translation>
    </message>
    <message>
        <source>The table is read again from its beginning. The answer is kept for files with the same header.</source>
        <translation>表を先頭から読み直します。回答は同じ見出しを持つファイルのために保存されます。</translation>
    </message>
</context>
<context>
    <name>Monitor::LatestValuePanel</name>
    <message>
        <source>&amp;All</source>
        <translation>すべて(&amp;A)</translation>
    </message>
    <message>
        <source>Show all channels</source>
        <translation>すべてのチャンネルを表示</translation>
    </message>
    <message>
        <source>N&amp;one</source>
        <translation>なし(&amp;O)</translation>
    </message>
    <message>
        <source>Show no channel</source>
        <translation>チャンネルを表示しない</translation>
    </message>
    <message>
        <source>Latest values</source>
        <translation>最新の値</translation>
    </message>
</context>
<context>
    <name>Monitor::LeadHeading</name>
    <message>
        <source>Of %1, the first source:</source>
        <translation>最初のソース %1 の項目:</translation>
    </message>
</context>
<context>
    <name>Monitor::LeftOutNotice</name>
    <message>
        <source>the detector is not used: %1; correct its description, or choose another one in File &gt; Settings...</source>
        <translation>検出器は使用されていません: %1。記述を修正するか、「ファイル &gt; 設定...」で別の検出器を選んでください</translation>
    </message>
    <message>
        <source>not all limits of the stream are used: %1; Measure &gt; Limits sets them here</source>
        <translation>ストリームの限界値の一部は使用されていません: %1。「測定 &gt; 限界値」で設定できます</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitActions</name>
    <message>
        <source>&amp;Acknowledge alarms</source>
        <translation>アラームを確認(&amp;A)</translation>
    </message>
    <message>
        <source>Alarms make a &amp;sound</source>
        <translation>アラーム音を鳴らす(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Limits...</source>
        <translation>限界値(&amp;L)...</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitMarks</name>
    <message>
        <source>ALARM %1</source>
        <translation>アラーム %1</translation>
    </message>
    <message>
        <source>WARN %1</source>
        <translation>警告 %1</translation>
    </message>
    <message>
        <source>%1, above its limit</source>
        <translation>%1、限界値超過</translation>
    </message>
    <message>
        <source>%1, below its limit</source>
        <translation>%1、限界値未満</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitsDialog</name>
    <message>
        <source>Limits</source>
        <translation>限界値</translation>
    </message>
    <message>
        <source>Limits of each channel</source>
        <translation>各チャンネルの限界値</translation>
    </message>
    <message>
        <source>Low alarm</source>
        <translation>下限アラーム</translation>
    </message>
    <message>
        <source>Low warning</source>
        <translation>下限警告</translation>
    </message>
    <message>
        <source>High warning</source>
        <translation>上限警告</translation>
    </message>
    <message>
        <source>High alarm</source>
        <translation>上限アラーム</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number with a decimal point</source>
        <translation>「%1」はピリオドを小数点とする数値ではありません</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2。</translation>
    </message>
    <message>
        <source>Readings beyond a limit are a warning or an alarm. An empty cell means no limit. Numbers have a decimal point.</source>
        <translation>限界値を超えた測定値は警告またはアラームになります。空欄は限界値なしです。数値の小数点はピリオドです。</translation>
    </message>
    <message>
        <source>Limits are set for the channels of a stream, and there are none yet.</source>
        <translation>限界値はストリームのチャンネルに設定します。チャンネルはまだありません。</translation>
    </message>
</context>
<context>
    <name>Monitor::LineSource</name>
    <message>
        <source>opening %1</source>
        <translation>%1 を開いています</translation>
    </message>
    <message>
        <source>%1; trying again in %2 s</source>
        <translation>%1。%2 秒後に再試行します</translation>
    </message>
    <message>
        <source>%1; waiting for the next one</source>
        <translation>%1。次の接続を待っています</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>%1 の終わりに達しました</translation>
    </message>
    <message>
        <source>%1 has been silent for %2 s</source>
        <translation>%1 から %2 秒間受信がありません</translation>
    </message>
</context>
<context>
    <name>Monitor::MeasureMenu</name>
    <message>
        <source>&amp;Measure</source>
        <translation>測定(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Limits</source>
        <translation>限界値(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Zero</source>
        <translation>ゼロ(&amp;Z)</translation>
    </message>
    <message>
        <source>Subtracts the newest reading of each channel from what is shown.</source>
        <translation>各チャンネルの最新の測定値を表示から差し引きます。</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>バックグラウンド(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Remove zero and background</source>
        <translation>ゼロとバックグラウンドを解除(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Average of the scope</source>
        <translation>スコープの平均(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>なし(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Markers</source>
        <translation>マーカー(&amp;M)</translation>
    </message>
    <message>
        <source>Two clicks on the scope place markers; the numbers between them stand beside it.</source>
        <translation>スコープを 2 回クリックするとマーカーが置かれ、その間の数値が横に表示されます。</translation>
    </message>
</context>
<context>
    <name>Monitor::MonitorStatusBar</name>
    <message>
        <source>Where the readings come from</source>
        <translation>測定値の入力元</translation>
    </message>
    <message>
        <source>Abnormal states</source>
        <translation>異常な状態</translation>
    </message>
    <message>
        <source>Readings per second</source>
        <translation>1 秒あたりの測定値</translation>
    </message>
    <message>
        <source>Lines that could not be used; the log lists them</source>
        <translation>使用できなかった行 (ログに一覧があります)</translation>
    </message>
    <message>
        <source>Pauses longer than three of the usual intervals</source>
        <translation>通常の 3 周期より長い途切れ</translation>
    </message>
    <message>
        <source>The file that is being recorded (Ctrl+R)</source>
        <translation>記録中のファイル (Ctrl+R)</translation>
    </message>
    <message>
        <source>Time, UTC</source>
        <translation>時刻 (UTC)</translation>
    </message>
    <message>
        <source>%1 /s</source>
        <translation>%1 /s</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>シミュレーション</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>更新なし</translation>
    </message>
    <message>
        <source>END</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>DISK FULL IN %1</source>
        <translation>ディスク残り %1</translation>
    </message>
    <message>
        <source>RECORDING FAILS</source>
        <translation>記録エラー</translation>
    </message>
    <message>
        <source>%1 (over, F8 acknowledges)</source>
        <translation>%1 (終了、F8 で確認)</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 他 %2 件</translation>
    </message>
    <message>
        <source>not recording</source>
        <translation>未記録</translation>
    </message>
    <message>
        <source>REC %1, %2</source>
        <translation>REC %1、%2</translation>
    </message>
    <message>
        <source>%1, room for %2</source>
        <translation>%1、残り %2</translation>
    </message>
    <message>
        <source>no reading has come for three of the usual intervals; check the beam and the instrument</source>
        <translation>通常の 3 周期の間、測定値が届いていません。ビームと装置を確認してください</translation>
    </message>
    <message>
        <source>what is shown stands still; Space shows the readings that wait</source>
        <translation>表示は止まっています。Space で待機中の測定値を表示します</translation>
    </message>
    <message>
        <source>no instrument is read; File &gt; Connect... reads one</source>
        <translation>装置を読み取っていません。「ファイル &gt; 接続...」で読み取ります</translation>
    </message>
    <message>
        <source>the source has delivered everything; File &gt; Open... opens another one</source>
        <translation>ソースはすべて読み終わりました。「ファイル &gt; 開く...」で別のものを開きます</translation>
    </message>
    <message>
        <source>%1. Make room, or record to another disk; readings wait meanwhile</source>
        <translation>%1。空きを作るか、別のディスクに記録してください。その間、測定値は待機します</translation>
    </message>
    <message>
        <source>make room, or record to another disk</source>
        <translation>空きを作るか、別のディスクに記録してください</translation>
    </message>
    <message>
        <source>F8 acknowledges, Measure &gt; Limits changes the limits; the log says when each was passed</source>
        <translation>F8 で確認、「測定 &gt; 限界値」で限界値を変更します。限界値の超過はすべてログにあります</translation>
    </message>
    <message>
        <source>compressing %1, %2 %</source>
        <translation>%1 を圧縮中、%2 %</translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <translation>%1: %2、%3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>the recording has a gap here: the values shown are from before it</source>
        <translation>記録はここで途切れています: 表示中の値はその前のものです</translation>
    </message>
</context>
<context>
    <name>Monitor::MonitorWindow</name>
    <message>
        <source>Latest &amp;values</source>
        <translation>最新の値(&amp;V)</translation>
    </message>
    <message>
        <source>Statist&amp;ics</source>
        <translation>統計(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>ログ(&amp;L)</translation>
    </message>
    <message>
        <source>Latest values</source>
        <translation>最新の値</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>統計</translation>
    </message>
    <message>
        <source>Log (UTC)</source>
        <translation>ログ (UTC)</translation>
    </message>
    <message>
        <source>%1 - Corvale Monitor</source>
        <translation>%1 - Corvale Monitor</translation>
    </message>
</context>
<context>
    <name>Monitor::MultichannelDeviceModel</name>
    <message>
        <source>no unit</source>
        <translation>単位なし</translation>
    </message>
    <message>
        <source>%1, channel %2, %3</source>
        <translation>%1、チャンネル %2、%3</translation>
    </message>
    <message>
        <source>no reading</source>
        <translation>測定値なし</translation>
    </message>
    <message>
        <source>%1 %2, over range</source>
        <translation>%1 %2、範囲超過</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>Monitor::NoSource</name>
    <message>
        <source>No source is open</source>
        <translation>開いているソースはありません</translation>
    </message>
    <message>
        <source>File &gt; Open... plays a recording, File &gt; Connect... reads an instrument.</source>
        <translation>「ファイル &gt; 開く...」で記録を再生し、「ファイル &gt; 接続...」で装置を読み取ります。</translation>
    </message>
</context>
<context>
    <name>Monitor::PgmSource</name>
    <message>
        <source>Check the path and whether this user may read it; a folder needs files called *.pgm, with grey images of at most 256 x 256 pixels.</source>
        <translation>パスと読み取り権限を確認してください。フォルダーには最大 256 x 256 ピクセルのグレー画像 *.pgm が必要です。</translation>
    </message>
    <message>
        <source>%1 has no files called *.pgm</source>
        <translation>%1 に *.pgm ファイルがありません</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 を開けません: %2</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>%1 の終わりに達しました</translation>
    </message>
    <message>
        <source>reading %1 failed: %2</source>
        <translation>%1 の読み取りに失敗しました: %2</translation>
    </message>
</context>
<context>
    <name>Monitor::PictureActions</name>
    <message>
        <source>Save &amp;picture...</source>
        <translation>画像を保存(&amp;P)...</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>印刷(&amp;I)...</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>印刷</translation>
    </message>
    <message>
        <source>The printer %1 did not take the picture. Choose another one, or save the picture instead.</source>
        <translation>プリンター %1 で印刷できませんでした。別のプリンターを選ぶか、画像を保存してください。</translation>
    </message>
    <message>
        <source>Copy &amp;picture</source>
        <translation>画像をコピー(&amp;P)</translation>
    </message>
</context>
<context>
    <name>Monitor::PictureDialog</name>
    <message>
        <source>&amp;Title:</source>
        <translation>タイトル(&amp;T):</translation>
    </message>
    <message>
        <source>A title above the picture (Alt+T)</source>
        <translation>画像の上のタイトル (Alt+T)</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>時刻(&amp;I)</translation>
    </message>
    <message>
        <source>When the picture was taken, and what was subtracted or averaged (Alt+I)</source>
        <translation>画像を作成した時刻と、差し引きや平均の内容 (Alt+I)</translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <translation>凡例(&amp;L)</translation>
    </message>
    <message>
        <source>The channels that are shown, with their newest values (Alt+L)</source>
        <translation>表示中のチャンネルと最新の値 (Alt+L)</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>As on the screen</source>
        <translation>画面のとおり</translation>
    </message>
    <message>
        <source>Light, for paper</source>
        <translation>明るい色 (印刷用)</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>暗い色</translation>
    </message>
    <message>
        <source>The colours of the picture; the screen stays as it is (Alt+O)</source>
        <translation>画像の色。画面はそのままです (Alt+O)</translation>
    </message>
    <message>
        <source>C&amp;olours:</source>
        <translation>色(&amp;O):</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>保存(&amp;S)...</translation>
    </message>
    <message>
        <source>Write a PNG, SVG or PDF file (Enter)</source>
        <translation>PNG、SVG、PDF ファイルに書き出す (Enter)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>Copy the picture to the clipboard (Alt+C)</source>
        <translation>画像をクリップボードにコピー (Alt+C)</translation>
    </message>
</context>
<context>
    <name>Monitor::PluginForm</name>
    <message>
        <source>&amp;Address:</source>
        <translation>アドレス(&amp;A):</translation>
    </message>
    <message>
        <source>As on the command line, for example %1. The plugin %2 reads it.</source>
        <translation>コマンドラインと同じ形です (例: %1)。プラグイン %2 が読み取ります。</translation>
    </message>
</context>
<context>
    <name>Monitor::PluginSource</name>
    <message>
        <source>opening %1</source>
        <translation>%1 を開いています</translation>
    </message>
    <message>
        <source>the plugin cannot open it</source>
        <translation>プラグインが開けません</translation>
    </message>
</context>
<context>
    <name>Monitor::ProfilePage</name>
    <message>
        <source>mean X %1</source>
        <translation>平均 X %1</translation>
    </message>
    <message>
        <source>mean Y %1</source>
        <translation>平均 Y %1</translation>
    </message>
    <message>
        <source>σ X %1</source>
        <translation>σ X %1</translation>
    </message>
    <message>
        <source>σ Y %1</source>
        <translation>σ Y %1</translation>
    </message>
    <message>
        <source>rotation %1°</source>
        <translation>回転 %1°</translation>
    </message>
    <message>
        <source>elongation %1</source>
        <translation>伸び %1</translation>
    </message>
    <message>
        <source>integral %1</source>
        <translation>積分 %1</translation>
    </message>
    <message>
        <source>max %1</source>
        <translation>最大 %1</translation>
    </message>
</context>
<context>
    <name>Monitor::RecordAction</name>
    <message>
        <source>Stop &amp;recording</source>
        <translation>記録を停止(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Record...</source>
        <translation>記録(&amp;R)...</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>記録</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>記録 (*.csv)</translation>
    </message>
    <message>
        <source>%1. Choose another file.</source>
        <translation>%1。別のファイルを選んでください。</translation>
    </message>
</context>
<context>
    <name>Monitor::Recorder</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 %2, and %3</source>
        <translation>%1 %2、%3</translation>
    </message>
    <message>
        <source>%1 exists already; choose another name, or allow overwriting (--overwrite)</source>
        <translation>%1 は既にあります。別の名前を選ぶか、上書きを許可してください (--overwrite)</translation>
    </message>
</context>
<context>
    <name>Monitor::ReportWindow</name>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 を開けません: %2</translation>
    </message>
    <message>
        <source>Report of the crash</source>
        <translation>異常終了のレポート</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Monitor::SerialForm</name>
    <message>
        <source>wait for ever</source>
        <translation>待ち続ける</translation>
    </message>
    <message>
        <source>P&amp;ort:</source>
        <translation>ポート(&amp;O):</translation>
    </message>
    <message>
        <source>The ports of this machine, or the path of another one. Reading one needs the group dialout.</source>
        <translation>このコンピューターのポート、または別のポートのパス。読み取りには dialout グループが必要です。</translation>
    </message>
    <message>
        <source>&amp;Rate:</source>
        <translation>速度(&amp;R):</translation>
    </message>
    <message>
        <source>Bits per second, as the instrument is set; 8 data bits, no parity, 1 stop bit.</source>
        <translation>装置の設定と同じビット毎秒。データ 8 ビット、パリティなし、ストップ 1 ビット。</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>無受信(&amp;I):</translation>
    </message>
    <message>
        <source>no port found; for example /dev/ttyUSB0</source>
        <translation>ポートが見つかりません (例: /dev/ttyUSB0)</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>シリアルポート</translation>
    </message>
</context>
<context>
    <name>Monitor::SerialSource</name>
    <message>
        <source>Check that the device is plugged in, that this user may open it (group dialout), and the baud rate.</source>
        <translation>装置の接続、このユーザーの権限 (dialout グループ)、ボーレートを確認してください。</translation>
    </message>
</context>
<context>
    <name>Monitor::Session</name>
    <message>
        <source>%1 is the source; record to another file</source>
        <translation>%1 はソースです。別のファイルに記録してください</translation>
    </message>
</context>
<context>
    <name>Monitor::SettingsDialog</name>
    <message>
        <source>As fast as &amp;possible</source>
        <translation>できるだけ速く(&amp;P)</translation>
    </message>
    <message>
        <source>Play a file &amp;again and again</source>
        <translation>ファイルを繰り返し再生(&amp;A)</translation>
    </message>
    <message>
        <source>its first reading</source>
        <translation>最初の測定値</translation>
    </message>
    <message>
        <source>its last reading</source>
        <translation>最後の測定値</translation>
    </message>
    <message>
        <source>as the source says</source>
        <translation>ソースの指定どおり</translation>
    </message>
    <message>
        <source>record nothing by itself</source>
        <translation>自動では記録しない</translation>
    </message>
    <message>
        <source>never</source>
        <translation>しない</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>起動(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Files</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>R&amp;eadings</source>
        <translation>測定値(&amp;E)</translation>
    </message>
    <message>
        <source>Re&amp;cordings</source>
        <translation>記録(&amp;C)</translation>
    </message>
    <message>
        <source>A simulated beam</source>
        <translation>シミュレーションのビーム</translation>
    </message>
    <message>
        <source>The last source</source>
        <translation>前回のソース</translation>
    </message>
    <message>
        <source>No source</source>
        <translation>ソースなし</translation>
    </message>
    <message>
        <source>&amp;Open:</source>
        <translation>開くもの(&amp;O):</translation>
    </message>
    <message>
        <source>What a start shows if the command line names no source.</source>
        <translation>コマンドラインでソースを指定しない場合に起動時に表示するもの。</translation>
    </message>
    <message>
        <source>Kept in:</source>
        <translation>保存先:</translation>
    </message>
    <message>
        <source>--settings FILE on the command line chooses another file, and another window.</source>
        <translation>コマンドラインの --settings ファイル で別のファイルと別のウィンドウを選べます。</translation>
    </message>
    <message>
        <source> times as recorded</source>
        <translation> 倍速</translation>
    </message>
    <message>
        <source>Spee&amp;d:</source>
        <translation>速度(&amp;D):</translation>
    </message>
    <message>
        <source>F&amp;rom:</source>
        <translation>開始(&amp;R):</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <translation>終了(&amp;T):</translation>
    </message>
    <message>
        <source>Lowest &amp;limit:</source>
        <translation>下限(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Highest limit:</source>
        <translation>上限(&amp;H):</translation>
    </message>
    <message>
        <source>In the unit of the readings; those outside are over range, from the next source on. Empty: as the source says.</source>
        <translation>測定値の単位。次のソースから、範囲外の値は範囲超過になります。空欄: ソースに従います。</translation>
    </message>
    <message>
        <source>&amp;Detector:</source>
        <translation>検出器(&amp;D):</translation>
    </message>
    <message>
        <source>Fo&amp;lder:</source>
        <translation>フォルダー(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;New file after:</source>
        <translation>新しいファイルにする間隔(&amp;N):</translation>
    </message>
    <message>
        <source>A time or a size: 1h, 30min, 100M, 2G.</source>
        <translation>時間またはサイズ: 1h、30min、100M、2G。</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>参照(&amp;B)...</translation>
    </message>
    <message>
        <source>Folder for recordings</source>
        <translation>記録のフォルダー</translation>
    </message>
    <message>
        <source>Description of a detector</source>
        <translation>検出器の記述</translation>
    </message>
    <message>
        <source>Detectors (*.json);;All files (*)</source>
        <translation>検出器 (*.json);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Limits need two numbers, the lower one first; or leave both fields empty.</source>
        <translation>限界には二つの数値が必要です (小さい方が先)。または両方を空にしてください。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a time nor a size. Write 1h, 30min, 100M or 2G.</source>
        <translation>「%1」は時間でもサイズでもありません。1h、30min、100M、2G のように入力してください。</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>デスクトップに合わせる</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>言語(&amp;L):</translation>
    </message>
    <message>
        <source>Every source that is opened is recorded to a new file in this folder, named after its date and time in UTC. Empty: only File &gt; Record.</source>
        <translation>開いたソースはすべて、このフォルダーの UTC 日時を名前とする新しいファイルに記録されます。空:「ファイル &gt; 記録」のみ。</translation>
    </message>
    <message>
        <source>Takes effect at the next start. Numbers and files are the same in every language.</source>
        <translation>次回の起動から有効です。数値とファイルはどの言語でも同じです。</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>限界なし</translation>
    </message>
    <message>
        <source>&amp;No beam below:</source>
        <translation>ビームなしとする下限(&amp;N):</translation>
    </message>
    <message>
        <source>A file that describes the detector, or a preset. Empty: what the source says, otherwise positions in cells.</source>
        <translation>検出器を記述したファイル、またはプリセット。空: ソースの指定どおり、なければ位置はセル単位。</translation>
    </message>
    <message>
        <source>A sum of readings, in their unit. Below it, the position displays say &quot;no beam&quot;.</source>
        <translation>測定値の合計 (その単位)。これを下回ると、位置の表示は「ビームなし」になります。</translation>
    </message>
    <message>
        <source>Ch&amp;oose</source>
        <translation>選択(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;File...</source>
        <translation>ファイル(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Verdicts</source>
        <translation>判定(&amp;V)</translation>
    </message>
    <message>
        <source>stays text</source>
        <translation>テキストのまま</translation>
    </message>
    <message>
        <source>is compressed (zstd)</source>
        <translation>圧縮する (zstd)</translation>
    </message>
    <message>
        <source>becomes HDF5 (NeXus)</source>
        <translation>HDF5 (NeXus) にする</translation>
    </message>
    <message>
        <source>A co&amp;mplete file:</source>
        <translation>完成したファイル(&amp;M):</translation>
    </message>
    <message>
        <source>What becomes of a file once nothing more is written to it. The monitor reads all of them.</source>
        <translation>書き込みが終わったファイルをどうするか。モニターはどの形式も読めます。</translation>
    </message>
    <message>
        <source>Times of the file, in seconds, or numbers of readings that have no times. They hold for files that are opened from now on, until the end of the program.</source>
        <translation>ファイル内の時刻 (秒)。時刻のない測定値ではその番号。これから開くファイルに、プログラムの終了まで適用されます。</translation>
    </message>
    <message>
        <source>There is nothing between %1 and %2: the first time must be the earlier one.</source>
        <translation>%1 と %2 の間には何もありません。最初の時刻を先にしてください。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number. Write it with a decimal point, like 1.5 or -1e-6.</source>
        <translation>「%1」は数値ではありません。1.5 や -1e-6 のように、ピリオドを小数点として入力してください。</translation>
    </message>
</context>
<context>
    <name>Monitor::SimulatorForm</name>
    <message>
        <source>Strip detector, 32 and 32 strips</source>
        <translation>ストリップ検出器、32 + 32 ストリップ</translation>
    </message>
    <message>
        <source>Pixel detector, 12 by 12</source>
        <translation>ピクセル検出器、12 x 12</translation>
    </message>
    <message>
        <source>Ionisation chamber with 4 sectors</source>
        <translation>4 分割電離箱</translation>
    </message>
    <message>
        <source>Spots of a treatment field</source>
        <translation>照射野のスポット</translation>
    </message>
    <message>
        <source>usual</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>&amp;Instrument:</source>
        <translation>装置(&amp;I):</translation>
    </message>
    <message>
        <source>The beam is computed; no hardware is needed.</source>
        <translation>ビームは計算で作られ、装置は必要ありません。</translation>
    </message>
    <message>
        <source>S&amp;eed:</source>
        <translation>シード(&amp;E):</translation>
    </message>
    <message>
        <source>Another number gives another beam and other noise.</source>
        <translation>数値を変えると、ビームとノイズが変わります。</translation>
    </message>
    <message>
        <source>Simulated beam</source>
        <translation>シミュレーションのビーム</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceForm</name>
    <message>
        <source>Connect again if a source that used to talk says nothing for this long, like 30s. Empty: wait for ever, as there may be no beam.</source>
        <translation>送信していたソースがこの時間沈黙したら再接続します (例: 30s)。空: ビームがない場合もあるため待ち続けます。</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceNotice</name>
    <message>
        <source>%1 contains no readings.</source>
        <translation>%1 に測定値がありません。</translation>
    </message>
    <message>
        <source>%1 contains no readings: %2.</source>
        <translation>%1 に測定値がありません: %2。</translation>
    </message>
    <message>
        <source>%1: no reading has arrived yet</source>
        <translation>%1: まだ測定値が届いていません</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceSwitch</name>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Opening another source ends the recording.</source>
        <translation>別のソースを開くと記録が終わります。</translation>
    </message>
    <message>
        <source>Closing the source ends the recording.</source>
        <translation>ソースを閉じると記録が終わります。</translation>
    </message>
    <message>
        <source>End the recording?</source>
        <translation>記録を終了しますか?</translation>
    </message>
    <message>
        <source>%1 What was recorded stays in %2.</source>
        <translation>%1 記録済みのデータは %2 に残ります。</translation>
    </message>
    <message>
        <source>&amp;End the recording</source>
        <translation>記録を終了(&amp;E)</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>記録</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>The source is open, but it is not recorded: %1. Choose another folder in File &gt; Settings..., or record with File &gt; Record...</source>
        <translation>ソースは開いていますが、記録されていません: %1。「ファイル &gt; 設定...」で別のフォルダーを選ぶか、「ファイル &gt; 記録...」で記録してください</translation>
    </message>
    <message>
        <source>The detector stays as it was: %1. Choose another file.</source>
        <translation>検出器は元のままです: %1。別のファイルを選んでください。</translation>
    </message>
    <message>
        <source>Reading the table again ends the recording.</source>
        <translation>表を読み直すと記録が終了します。</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceTest</name>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Waiting for the first readings ...</source>
        <translation>最初の測定値を待っています ...</translation>
    </message>
    <message>
        <source>The source works.</source>
        <translation>ソースは動作しています。</translation>
    </message>
    <message>
        <source>First lines:</source>
        <translation>最初の行:</translation>
    </message>
    <message>
        <source>It contains no readings: %1.</source>
        <translation>測定値がありません: %1。</translation>
    </message>
    <message>
        <source>Some lines cannot be used; the first is %1</source>
        <translation>使用できない行があります。最初のものは %1</translation>
    </message>
    <message>
        <source>It contains no readings</source>
        <translation>測定値が含まれていません</translation>
    </message>
    <message>
        <source>Something arrived, but nothing of it could be read within %1 s. The source must send lines of numbers; see Help &gt; Line protocol.</source>
        <translation>何かを受信しましたが、%1 秒以内に読み取れるものはありませんでした。ソースは数値の行を送る必要があります。ヘルプ &gt; 行プロトコルを参照してください。</translation>
    </message>
    <message>
        <source>Nothing arrived within %1 s. %2</source>
        <translation>%1 秒以内に何も届きませんでした。%2</translation>
    </message>
</context>
<context>
    <name>Monitor::SpanControl</name>
    <message>
        <source>Time &amp;span:</source>
        <translation>時間幅(&amp;S):</translation>
    </message>
    <message>
        <source>Time that the strip chart shows (Ctrl+T): choose one, or type 90 s, 2 h, 1.5 min or all. Readings older than the newest 100000 are shown as the range of blocks, for a week; while they are averaged, they are not shown.</source>
        <translation>ストリップチャートに表示する時間 (Ctrl+T): 選ぶか、90 s、2 h、1.5 min、すべて のように入力します。最新の 100000 個より古い測定値は 1 週間、ブロックごとの範囲として表示されます。平均中は表示されません。</translation>
    </message>
</context>
<context>
    <name>Monitor::SpotLayers</name>
    <message>
        <source>Spots</source>
        <translation>スポット</translation>
    </message>
    <message>
        <source>Layer %1 of %2</source>
        <translation>レイヤー %1 / %2</translation>
    </message>
</context>
<context>
    <name>Monitor::StaleMarks</name>
    <message>
        <source>old: %1</source>
        <translation>旧: %1</translation>
    </message>
    <message>
        <source>This value is old: no reading has arrived since.</source>
        <translation>この値は古い値です。その後測定値が届いていません。</translation>
    </message>
</context>
<context>
    <name>Monitor::StandardInputForm</name>
    <message>
        <source>Standard input</source>
        <translation>標準入力</translation>
    </message>
    <message>
        <source>Reads the lines, or grey images (PGM), that another program writes into this one:

    instrument | corvale-monitor -

What was read is gone, so this source cannot be tested and cannot be opened twice.</source>
        <translation>別のプログラムがこのプログラムに書き込む行、またはグレー画像 (PGM) を読み取ります:

    instrument | corvale-monitor -

読み取ったものは残らないため、テストも二度開くこともできません。</translation>
    </message>
</context>
<context>
    <name>Monitor::StandardInputSource</name>
    <message>
        <source>reading standard input failed: %1</source>
        <translation>標準入力の読み取りに失敗しました: %1</translation>
    </message>
    <message>
        <source>standard input: what follows image %1 cannot be read</source>
        <translation>標準入力: 画像 %1 の後を読めません</translation>
    </message>
</context>
<context>
    <name>Monitor::SweepNotice</name>
    <message>
        <source>The first sweep is shown when it is complete (%1 of %2)</source>
        <translation>最初の掃引は完了すると表示されます (%1/%2)</translation>
    </message>
</context>
<context>
    <name>Monitor::SystemError</name>
    <message>
        <source>Connection refused</source>
        <translation>接続が拒否されました</translation>
    </message>
    <message>
        <source>Connection timed out</source>
        <translation>接続がタイムアウトしました</translation>
    </message>
    <message>
        <source>Host not found</source>
        <translation>ホストが見つかりません</translation>
    </message>
    <message>
        <source>Network unreachable</source>
        <translation>ネットワークに到達できません</translation>
    </message>
    <message>
        <source>Socket operation timed out</source>
        <translation>ソケットの操作がタイムアウトしました</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>ファイルまたはフォルダーがありません</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>ディスクに空きがありません</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>アクセスが許可されていません</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>開いているファイルが多すぎます</translation>
    </message>
    <message>
        <source>Host unreachable</source>
        <translation>ホストに到達できません</translation>
    </message>
    <message>
        <source>Network error</source>
        <translation>ネットワークエラー</translation>
    </message>
    <message>
        <source>The address is not available</source>
        <translation>そのアドレスは使用できません</translation>
    </message>
    <message>
        <source>The address is protected</source>
        <translation>そのアドレスは保護されています</translation>
    </message>
    <message>
        <source>The bound address is already in use</source>
        <translation>そのアドレスはすでに使用されています</translation>
    </message>
    <message>
        <source>The remote host closed the connection</source>
        <translation>相手側が接続を閉じました</translation>
    </message>
    <message>
        <source>Device or resource busy</source>
        <translation>デバイスが使用中です</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>ディスクの割り当てを超えました</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>ファイルが大きすぎます</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>入出力エラー</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>そのデバイスはありません</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>フォルダーではありません</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>その操作は許可されていません</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>ファイルシステムは読み取り専用です</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeBar</name>
    <message>
        <source>Tape &amp;deck</source>
        <translation>テープデッキ(&amp;D)</translation>
    </message>
</context>
<context>
    <name>Monitor::TapePanel</name>
    <message>
        <source>%1 x</source>
        <translation>%1 x</translation>
    </message>
    <message>
        <source>fastest</source>
        <translation>最速</translation>
    </message>
    <message>
        <source>Tape</source>
        <translation>テープ</translation>
    </message>
    <message>
        <source>One reading back (comma)</source>
        <translation>1 測定値戻る (コンマ)</translation>
    </message>
    <message>
        <source>Play or pause (Enter)</source>
        <translation>再生または一時停止 (Enter)</translation>
    </message>
    <message>
        <source>One reading on (period)</source>
        <translation>1 測定値進む (ピリオド)</translation>
    </message>
    <message>
        <source>Speed of the tape</source>
        <translation>テープの速度</translation>
    </message>
    <message>
        <source>Repeat from here ([)</source>
        <translation>ここから繰り返す ([)</translation>
    </message>
    <message>
        <source>Repeat up to here (])</source>
        <translation>ここまで繰り返す (])</translation>
    </message>
    <message>
        <source>Repeat nothing (Backspace)</source>
        <translation>繰り返さない (Backspace)</translation>
    </message>
    <message>
        <source>Pause the tape</source>
        <translation>テープを一時停止</translation>
    </message>
    <message>
        <source>Play the tape</source>
        <translation>テープを再生</translation>
    </message>
    <message>
        <source>%1/%2: </source>
        <translation>%1/%2: </translation>
    </message>
    <message>
        <source>How many times as fast as the recording was taken; of readings without times, 1 x shows %1 a second</source>
        <translation>記録時の何倍の速さか。時刻のない測定値では 1 x で毎秒 %1 個を表示します</translation>
    </message>
    <message>
        <source>The time of the reading that is shown, as the recording has it; the time that passes in a gap; the number of the reading where the recording has no times</source>
        <translation>表示中の測定値の、記録にある時刻。途切れの間は経過する時刻。記録に時刻がなければ測定値の番号</translation>
    </message>
    <message>
        <source>Click or drag to go there, drag with Shift to repeat a stretch. Keys: left and right (with Shift ten times as far), Home, End, Page Up and Page Down to events and to where gaps begin and end.</source>
        <translation>クリックかドラッグでその位置へ移動、Shift を押しながらドラッグで区間を繰り返します。キー: 左右 (Shift で 10 倍)、Home、End、Page Up と Page Down でイベントと、途切れの始まりと終わりへ。</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeText</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>spot %1 of %2</source>
        <translation>スポット %1 / %2</translation>
    </message>
    <message>
        <source>reading %1 of %2</source>
        <translation>測定値 %1 / %2</translation>
    </message>
    <message>
        <source>gap, %1</source>
        <translation>途切れ %1</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeTimeline</name>
    <message>
        <source>Time line of the recording</source>
        <translation>記録のタイムライン</translation>
    </message>
    <message>
        <source>The recording is being looked through: %1 %</source>
        <translation>記録を調べています: %1 %</translation>
    </message>
    <message>
        <source>, part %1 of %2</source>
        <translation>、パート %1 / %2</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>no readings for %1</source>
        <translation>%1 の間、測定値なし</translation>
    </message>
    <message>
        <source>The recording can be played, but not searched: %1</source>
        <translation>記録は再生できますが、検索できません: %1</translation>
    </message>
    <message>
        <source>the outline is the sum of %1</source>
        <translation>輪郭は %1 の合計です</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpClientForm</name>
    <message>
        <source>the instrument talks by itself</source>
        <translation>装置が自発的に送信</translation>
    </message>
    <message>
        <source>wait for ever</source>
        <translation>待ち続ける</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>ホスト(&amp;H):</translation>
    </message>
    <message>
        <source>The name or the address of the instrument.</source>
        <translation>装置の名前またはアドレス。</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>ポート(&amp;P):</translation>
    </message>
    <message>
        <source>The number of the TCP port; the instrument&apos;s manual has it.</source>
        <translation>TCP ポートの番号 (装置のマニュアルにあります)。</translation>
    </message>
    <message>
        <source>What to send for each reading, like READ?, if the instrument answers only when asked.</source>
        <translation>装置が問い合わせにだけ応答する場合、測定値ごとに送る文字列 (例: READ?)。</translation>
    </message>
    <message>
        <source>E&amp;very:</source>
        <translation>間隔(&amp;V):</translation>
    </message>
    <message>
        <source>How often to ask: 100ms, 1s. Unused without a question.</source>
        <translation>問い合わせの間隔: 100ms、1s。問い合わせがなければ使いません。</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>無受信(&amp;I):</translation>
    </message>
    <message>
        <source>Network instrument</source>
        <translation>ネットワークの装置</translation>
    </message>
    <message>
        <source>&amp;Ask:</source>
        <translation>問い合わせ(&amp;A):</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpClientSource</name>
    <message>
        <source>Check that the instrument is switched on and reachable, that the port is right, and whether the instrument must be asked (?ask=TEXT).</source>
        <translation>装置の電源と接続、ポート、問い合わせ (?ask=テキスト) の要否を確認してください。</translation>
    </message>
    <message>
        <source>its name was not resolved in time</source>
        <translation>名前解決が時間内に完了しませんでした</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpServerForm</name>
    <message>
        <source>wait for ever</source>
        <translation>待ち続ける</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>アドレス(&amp;A):</translation>
    </message>
    <message>
        <source>127.0.0.1 lets only programs of this machine connect, 0.0.0.0 every machine of the network.</source>
        <translation>127.0.0.1 はこのコンピューターのプログラムだけ、0.0.0.0 はネットワーク上のすべてのコンピューターの接続を許します。</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>ポート(&amp;P):</translation>
    </message>
    <message>
        <source>The TCP port that this program opens and the other one connects to.</source>
        <translation>このプログラムが開き、相手が接続する TCP ポート。</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>無受信(&amp;I):</translation>
    </message>
    <message>
        <source>Wait for a program</source>
        <translation>プログラムを待つ</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpServerSource</name>
    <message>
        <source>Check that no other program listens on this port, that the address belongs to this machine, and that the sender uses the same port.</source>
        <translation>このポートを別のプログラムが使っていないか、アドレスがこのコンピューターのものか、送信側のポートが同じかを確認してください。</translation>
    </message>
    <message>
        <source>the connection broke (%1)</source>
        <translation>接続が切れました (%1)</translation>
    </message>
</context>
<context>
    <name>Monitor::Text</name>
    <message>
        <source>its columns are separated by semicolons</source>
        <translation>列がセミコロンで区切られています</translation>
    </message>
    <message>
        <source>its columns are separated by tabs</source>
        <translation>列がタブで区切られています</translation>
    </message>
    <message>
        <source>its columns are separated by bars</source>
        <translation>列が縦棒で区切られています</translation>
    </message>
    <message>
        <source>its values are in quotes</source>
        <translation>値が引用符で囲まれています</translation>
    </message>
    <message>
        <source>its numbers have a decimal comma</source>
        <translation>数値が小数点にコンマを使っています</translation>
    </message>
    <message>
        <source>its times are dates</source>
        <translation>時刻が日時です</translation>
    </message>
    <message>
        <source>its times are dates without a time zone (local time is assumed; clock=utc otherwise)</source>
        <translation>時刻が時間帯のない日時です (現地時刻とみなします。違う場合は clock=utc)</translation>
    </message>
    <message>
        <source> and </source>
        <translation> および </translation>
    </message>
    <message>
        <source>no column holds the time, and %1 is not a time</source>
        <translation>時刻の列がなく、%1 は時刻ではありません</translation>
    </message>
    <message>
        <source>no column holds the time</source>
        <translation>時刻の列がありません</translation>
    </message>
    <message>
        <source>, and </source>
        <translation>、および </translation>
    </message>
    <message>
        <source>%1. The option --import &quot;%2&quot; reads it</source>
        <translation>%1。オプション --import &quot;%2&quot; で読めます</translation>
    </message>
    <message>
        <source>%1. If its rows are 1 ms apart, the option --import &quot;%2&quot; reads it</source>
        <translation>%1。行の間隔が 1 ms なら、オプション --import &quot;%2&quot; で読めます</translation>
    </message>
    <message>
        <source>&quot;%1&quot; makes no sense; there are delimiter=comma, semicolon, tab, blank or bar, decimal=comma, header=yes or no, time=COLUMN or none, interval=1ms, clock=utc or local, format=dd.MM.yyyy HH:mm:ss, skip=LINES and comment=SIGN, separated by commas</source>
        <translation>「%1」は解釈できません。指定できるのは delimiter=comma、semicolon、tab、blank、bar、decimal=comma、header=yes または no、time=列 または none、interval=1ms、clock=utc または local、format=dd.MM.yyyy HH:mm:ss、skip=行数、comment=記号 で、コンマで区切ります</translation>
    </message>
    <message>
        <source>with decimal=comma the delimiter cannot be a comma</source>
        <translation>decimal=comma の場合、区切りをコンマにはできません</translation>
    </message>
    <message>
        <source>clock says how a time column is read, and there is none</source>
        <translation>clock は時刻の列の読み方を指定しますが、時刻の列がありません</translation>
    </message>
    <message>
        <source>%1 is not a list of spots; it needs the columns x_mm, y_mm and mu</source>
        <translation>%1 はスポットのリストではありません。列 x_mm、y_mm、mu が必要です</translation>
    </message>
    <message>
        <source>four numbers are needed, empty for no limit</source>
        <translation>数値が四つ必要です (限界値なしは空)</translation>
    </message>
    <message>
        <source>the limits must rise from low alarm to high alarm</source>
        <translation>限界値は下限アラームから上限アラームへ増加しなければなりません</translation>
    </message>
    <message>
        <source>no spot lies where one is planned</source>
        <translation>計画位置にスポットがありません</translation>
    </message>
    <message>
        <source> (row %1, spot %2)</source>
        <translation> (行 %1、スポット %2)</translation>
    </message>
    <message>
        <source> (row %1)</source>
        <translation> (行 %1)</translation>
    </message>
    <message>
        <source>; no tolerance is set</source>
        <translation>。許容差の設定なし</translation>
    </message>
    <message>
        <source>; %1 outside %2 x %3 mm</source>
        <translation>。%2 x %3 mm の外に %1 個</translation>
    </message>
    <message>
        <source>%1 missing (%2 %7), %3 extra (%4 %7); total dose %5 %7 of %6 %7</source>
        <translation>欠落 %1 (%2 %7)、余分 %3 (%4 %7)。総線量 %5 %7 / %6 %7</translation>
    </message>
    <message>
        <source>; largest difference of a spot %1 %2</source>
        <translation>。スポットの最大差 %1 %2</translation>
    </message>
    <message>
        <source>was removed or renamed</source>
        <translation>は削除されたか名前が変わりました</translation>
    </message>
    <message>
        <source>was replaced by another file</source>
        <translation>は別のファイルに置き換えられました</translation>
    </message>
    <message>
        <source>was changed by another program</source>
        <translation>は別のプログラムに変更されました</translation>
    </message>
    <message>
        <source>over a year</source>
        <translation>1 年以上</translation>
    </message>
    <message>
        <source>%1 d</source>
        <translation>%1 日</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 時間</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 分</translation>
    </message>
    <message>
        <source>less than a minute</source>
        <translation>1 分未満</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a known kind of source; there are sim:, file:, -, tcp://, tcp-listen:// and serial:</source>
        <translation>「%1」は未知の種類のソースです。sim:、file:、-、tcp://、tcp-listen://、serial: があります</translation>
    </message>
    <message>
        <source>sim:%1: only seed=NUMBER may follow the question mark</source>
        <translation>sim:%1: 疑問符の後に指定できるのは seed=数値 だけです</translation>
    </message>
    <message>
        <source>there is no simulator &quot;%1&quot;; there are sim:ic4, sim:strips, sim:pixels and sim:spots</source>
        <translation>シミュレーター「%1」はありません。sim:ic4、sim:strips、sim:pixels、sim:spots があります</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tcp://HOST:PORT</source>
        <translation>「%1」は tcp://ホスト:ポート の形にしてください</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: only ?ask=TEXT&amp;every=100ms&amp;silence=30s may follow the port</source>
        <translation>「%1」: ポートの後に指定できるのは ?ask=テキスト&amp;every=100ms&amp;silence=30s だけです</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tcp-listen://127.0.0.1:PORT, with the address of one of this machine&apos;s interfaces (0.0.0.0 for all of them); only ?silence=30s may follow the port</source>
        <translation>「%1」は tcp-listen://127.0.0.1:ポート の形にし、このコンピューターのインターフェースのアドレス (すべてなら 0.0.0.0) を指定してください。ポートの後に指定できるのは ?silence=30s だけです</translation>
    </message>
    <message>
        <source>&quot;serial:%1&quot; should be serial:DEVICE or serial:DEVICE?baud=NUMBER&amp;silence=30s</source>
        <translation>「serial:%1」は serial:デバイス または serial:デバイス?baud=数値&amp;silence=30s の形にしてください</translation>
    </message>
    <message>
        <source>PNG (*.png);;SVG (*.svg);;PDF (*.pdf)</source>
        <translation>PNG (*.png);;SVG (*.svg);;PDF (*.pdf)</translation>
    </message>
    <message>
        <source>%1: the name of a picture must end in .png, .svg or .pdf</source>
        <translation>%1: 画像の名前は .png、.svg、.pdf のいずれかで終わる必要があります</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Check the path and whether this user may read it</source>
        <translation>%1 を読めません: %2。パスと読み取り権限を確認してください</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2. Correct this line, or remove it</source>
        <translation>%1 は使用できません: %2。この行を直すか、削除してください</translation>
    </message>
    <message>
        <source>%1 has more than %2 spots. Compare the fields one by one</source>
        <translation>%1 のスポットは %2 個を超えています。照射野を一つずつ比較してください</translation>
    </message>
    <message>
        <source>another recorder is writing to it, or it is being compressed</source>
        <translation>別のプログラムが記録中か、圧縮中です</translation>
    </message>
    <message>
        <source>it has too many parts, or descriptions that are too long</source>
        <translation>パートが多すぎるか、記述が長すぎます</translation>
    </message>
    <message>
        <source>it contains no readings</source>
        <translation>測定値がありません</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Choose another file.</source>
        <translation>%1 に書き込めません: %2。別のファイルを選んでください。</translation>
    </message>
    <message>
        <source>%1x average</source>
        <translation>%1 点平均</translation>
    </message>
    <message>
        <source>it is a link of another user</source>
        <translation>別の利用者が作ったリンクです</translation>
    </message>
    <message>
        <source>32 + 32 strips of 2 mm</source>
        <translation>2 mm のストリップ 32 + 32</translation>
    </message>
    <message>
        <source>32 + 32 strips of 2 mm, x in channels 1 to 32 and y in 65 to 96 of 128</source>
        <translation>2 mm のストリップ 32 + 32、128 のうち x はチャンネル 1～32、y は 65～96</translation>
    </message>
    <message>
        <source>120 pixels of 3.8 mm in 12 rows of 12, without the corners</source>
        <translation>3.8 mm のピクセル 120 個、12 x 12、角を除く</translation>
    </message>
    <message>
        <source>120 pixels of 3.8 mm, as they are wired to 128 channels</source>
        <translation>3.8 mm のピクセル 120 個、128 チャンネルへの配線どおり</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>%1 があります</translation>
    </message>
    <message>
        <source>No signal.</source>
        <translation>信号がありません。</translation>
    </message>
    <message>
        <source>it has no channels</source>
        <translation>チャンネルがありません</translation>
    </message>
    <message>
        <source>frames of %1 x %2 values cannot be shown: a matrix has at most 256 columns and 256 rows, and planes of strips have at most 65536 values together</source>
        <translation>%1 x %2 個の値のフレームは表示できません。マトリックスは最大 256 列 256 行、ストリップ面は合わせて最大 65536 個の値です</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a known kind of source: %2</source>
        <translation>「%1」は既知の種類のソースではありません: %2</translation>
    </message>
    <message>
        <source>%1 is not a plugin</source>
        <translation>%1 はプラグインではありません</translation>
    </message>
    <message>
        <source>%1 is a plugin, but not for sources of this program</source>
        <translation>%1 はプラグインですが、このプログラムのソース用ではありません</translation>
    </message>
    <message>
        <source>%1 was built for version %2 of the interface, and this program has version %3</source>
        <translation>%1 はインターフェースのバージョン %2 用に作られていますが、このプログラムはバージョン %3 です</translation>
    </message>
    <message>
        <source>%1 does not say which addresses it reads</source>
        <translation>%1 は読み取るアドレスを示していません</translation>
    </message>
    <message>
        <source>there is no plugin for %1: install the package %2</source>
        <translation>%1 のプラグインがありません。パッケージ %2 をインストールしてください</translation>
    </message>
    <message>
        <source>the plugin for %1 cannot be loaded: %2</source>
        <translation>%1 のプラグインを読み込めません: %2</translation>
    </message>
    <message>
        <source>there is no file of that name, and no plugin for %1 in %2</source>
        <translation>その名前のファイルはなく、%2 に %1 のプラグインもありません</translation>
    </message>
    <message>
        <source>LOST</source>
        <translation>切断</translation>
    </message>
    <message>
        <source>CONNECTING</source>
        <translation>接続中</translation>
    </message>
    <message>
        <source>END</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>更新なし</translation>
    </message>
    <message>
        <source>no reading has come for three of the usual intervals; check the beam and the instrument</source>
        <translation>通常の 3 周期の間、測定値が届いていません。ビームと装置を確認してください</translation>
    </message>
    <message>
        <source>RECORDING FAILS</source>
        <translation>記録エラー</translation>
    </message>
    <message>
        <source>CLOCK %1 s</source>
        <translation>時計 %1 s</translation>
    </message>
    <message>
        <source>the clock of the source differs from this computer&apos;s by this much, so its chart shows another time than the others</source>
        <translation>ソースの時計がこのコンピューターの時計とこれだけずれているため、このチャートはほかのチャートと異なる時刻を表示します</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>シミュレーション</translation>
    </message>
    <message>
        <source>no instrument is read</source>
        <translation>機器は読み取られていません</translation>
    </message>
    <message>
        <source>HDF5 gives no reason</source>
        <translation>HDF5 は理由を示していません</translation>
    </message>
    <message>
        <source>they are not numbers</source>
        <translation>数値ではありません</translation>
    </message>
    <message>
        <source>they are not a list</source>
        <translation>並びではありません</translation>
    </message>
    <message>
        <source>they lie in another file</source>
        <translation>別のファイルにあります</translation>
    </message>
    <message>
        <source>their chunks are larger than %1 MB</source>
        <translation>ブロックが %1 MB を超えています</translation>
    </message>
    <message>
        <source>they claim to be more than the file can hold</source>
        <translation>ファイルに入りきらない量だと示されています</translation>
    </message>
    <message>
        <source>its data %1 cannot be read: %2</source>
        <translation>データ %1 を読めません: %2</translation>
    </message>
    <message>
        <source>they are missing</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>they do not have the form that the file describes</source>
        <translation>ファイルの記述と形が異なります</translation>
    </message>
    <message>
        <source>the description of its readings is damaged</source>
        <translation>測定値の記述が壊れています</translation>
    </message>
    <message>
        <source>this program was built without HDF5; build it with the HDF5 library (Debian has it in libhdf5-dev) and the option CORVALE_QT_HDF5</source>
        <translation>このプログラムは HDF5 なしで作られています。HDF5 ライブラリ (Debian では libhdf5-dev) とオプション CORVALE_QT_HDF5 を使って作成してください</translation>
    </message>
    <message>
        <source>it does not say which of its data is the signal</source>
        <translation>どのデータが信号なのか示されていません</translation>
    </message>
    <message>
        <source>its signal %1 is missing</source>
        <translation>信号 %1 が見つかりません</translation>
    </message>
    <message>
        <source>its signal has %1 dimensions; 1, 2 and 3 can be shown</source>
        <translation>信号は %1 次元です。表示できるのは 1、2、3 次元です</translation>
    </message>
    <message>
        <source>its axis %1 is missing</source>
        <translation>軸 %1 が見つかりません</translation>
    </message>
    <message>
        <source>its signal %1 has %2 values for each time; up to %3 can be shown</source>
        <translation>信号 %1 は時刻ごとに %2 個の値を持ちます。表示できるのは %3 個までです</translation>
    </message>
    <message>
        <source>its signal %1 has images of %2 x %3; up to %4 x %4 can be shown</source>
        <translation>信号 %1 の画像は %2 x %3 です。表示できるのは %4 x %4 までです</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
        <source>%1 exists already; choose another name, or allow overwriting (--overwrite)</source>
        <translation>%1 は既にあります。別の名前を選ぶか、上書きを許可してください (--overwrite)</translation>
    </message>
    <message>
        <source>this user may not read it</source>
        <translation>このユーザーには読む権限がありません</translation>
    </message>
    <message>
        <source>it is not a whole HDF5 file: it is damaged, cut off or still being written (%1)</source>
        <translation>完全な HDF5 ファイルではありません。壊れているか、途中で切れているか、まだ書き込み中です (%1)</translation>
    </message>
    <message>
        <source>it changes while it is read</source>
        <translation>読み込み中に変更されています</translation>
    </message>
    <message>
        <source>readings %1 to %2 of %3 are damaged (%4)</source>
        <translation>%3 の測定値 %1 から %2 が壊れています (%4)</translation>
    </message>
    <message>
        <source>event %1 of %2 is damaged</source>
        <translation>%2 の出来事 %1 が壊れています</translation>
    </message>
    <message>
        <source>it is not open</source>
        <translation>開かれていません</translation>
    </message>
    <message>
        <source>what was written is not what was recorded</source>
        <translation>書き込まれた内容が記録と一致しません</translation>
    </message>
    <message>
        <source>it has no NXdata</source>
        <translation>NXdata がありません</translation>
    </message>
    <message>
        <source>it has no NXentry and no NXdata, which tell what its numbers are</source>
        <translation>数値の意味を示す NXentry も NXdata もありません</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>the description of the stream is too long</source>
        <translation>データの流れの記述が長すぎます</translation>
    </message>
    <message>
        <source>it has more than %1 acquisitions; convert its parts one by one</source>
        <translation>取得が %1 回を超えています。部分ごとに変換してください</translation>
    </message>
    <message>
        <source>another program writes to %1</source>
        <translation>別のプログラムが %1 に書き込んでいます</translation>
    </message>
    <message>
        <source>NOT RECORDED</source>
        <translation>記録なし</translation>
    </message>
    <message>
        <source>the file of this source could not be begun; the log says why. Stop the recording and begin another one</source>
        <translation>このソースのファイルを作成できませんでした。理由はログにあります。記録を停止し、新しく開始してください</translation>
    </message>
    <message>
        <source>the texts in it are damaged</source>
        <translation>その中のテキストが壊れています</translation>
    </message>
    <message>
        <source>it should begin with the name of the control system, like tango:beam/monitor/1</source>
        <translation>tango:beam/monitor/1 のように、公開する方式の名前で始めてください</translation>
    </message>
    <message>
        <source>%1 was built for another version of the interface</source>
        <translation>%1 は別の版のインターフェース用に作られています</translation>
    </message>
    <message>
        <source>the plugin for %1 reads sources, and publishes nothing</source>
        <translation>%1 のプラグインはソースを読むだけで、何も公開しません</translation>
    </message>
    <message>
        <source>%1 is shown alone: its images have no times. Open it with File &gt; Open..., or in a window with another --settings FILE</source>
        <translation>%1 は単独で表示されます: 画像に時刻がありません。ファイル &gt; 開く... で開くか、別の --settings ファイルのウィンドウで開いてください</translation>
    </message>
    <message>
        <source>%1 is a recording, and %2 is an instrument: they are not shown together, since their readings were taken at different times. Open one of them in a window with another --settings FILE</source>
        <translation>%1 は記録で、%2 は機器です: 測定値の取得時刻が異なるため、一緒には表示されません。どちらかを別の --settings ファイルのウィンドウで開いてください</translation>
    </message>
    <message>
        <source>a text in it is larger than 64 MB</source>
        <translation>中のテキストが 64 MB を超えています</translation>
    </message>
    <message>
        <source>the system cannot start another thread</source>
        <translation>システムはこれ以上スレッドを開始できません</translation>
    </message>
    <message numerus="yes">
        <source>The source works. It sent only %n reading(s) within %1 s.</source>
        <translation>
            <numerusform>ソースは動作しています。%1 秒間に送られた測定値は %n 個だけです。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Read as %n channel(s), layout %1:</source>
        <translation>
            <numerusform>%n チャンネル、配置 %1 として読み取り:</numerusform>
        </translation>
    </message>
    <message>
        <source>its signal %1 has no time axis</source>
        <translation>信号 %1 に時間の軸がありません</translation>
    </message>
    <message>
        <source>its axis %1 is not as long as its signal %2</source>
        <translation>軸 %1 の長さが信号 %2 と異なります</translation>
    </message>
    <message>
        <source>the axis %1 of its signal %2 is in %3, which is not a unit of time</source>
        <translation>信号 %2 の軸 %1 の単位 %3 は時間の単位ではありません</translation>
    </message>
    <message numerus="yes">
        <source>%1 is being compressed, and %n more file(s) is/are waiting. Nothing is lost if you do not wait.</source>
        <translation>
            <numerusform>%1 を圧縮中で、他に %n 個のファイルが待機しています。待たなくても何も失われません。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n spot(s): mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm</source>
        <translation>
            <numerusform>%n スポット: 平均 X %1、Y %2 mm。シグマ X %3、Y %4 mm。最大 %5 mm</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n spot(s) without a place, a dose or a width is/are not compared</source>
        <translation>
            <numerusform>。位置、線量、幅のない %n スポットは比較しません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n reading(s) lies in the times that were asked for</source>
        <translation>
            <numerusform>%n 個の測定値のどれも指定した時間内にありません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n line(s) can be read; the first was %1; a row must be t,v1,v2,... with decimal points, or --import must say how it is written</source>
        <translation>
            <numerusform>%n 行のどれも読めません。最初の行は %1 でした。行は小数点を使った t,v1,v2,... であるか、書式を --import で指定する必要があります</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) was/were cleared from the displays. For a minute it/they can be brought back (%1).</source>
        <translation>
            <numerusform>%n 個の測定値を表示から消去しました。1 分以内なら元に戻せます (%1)。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n column(s) beyond the first %1 is/are left out; a stream of frames may have more</source>
        <translation>
            <numerusform>最初の %1 列より後の %n 列は使われません。フレームのストリームならより多くの列を使えます</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Subtracts the mean of the last %n reading(s) of each channel from what is shown.</source>
        <translation>
            <numerusform>各チャンネルの直近 %n 個の測定値の平均を表示から差し引きます。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s)</source>
        <translation>
            <numerusform>%n 測定値</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n bad line(s)</source>
        <translation>
            <numerusform>不良行 %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n gap(s)</source>
        <translation>
            <numerusform>途切れ %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PAUSED, %n reading(s) wait(s)</source>
        <translation>
            <numerusform>一時停止、%n 個の測定値が待機</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: none of %n line(s) could be read; the first was %2. A line must be t,v1,v2,... with decimal points.</source>
        <translation>
            <numerusform>%1: %n 行のどれも読めませんでした。最初の行は %2 でした。行は小数点を使った t,v1,v2,... でなければなりません。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %n layer(s)</source>
        <translation>
            <numerusform>全 %n レイヤー</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) is/are not wired</source>
        <translation>
            <numerusform>%n 個のセルが配線されていません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong(s) to no cell</source>
        <translation>
            <numerusform>%n 個の測定値がどのセルにも属しません</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2 left out</source>
        <translation>%1: %2 を除外</translation>
    </message>
    <message>
        <source>readings with charge where the detector has no cell: %1; the worst, at %2 s: %3</source>
        <translation>検出器にセルがない場所に電荷がある測定値: %1。最大のもの (%2 s): %3</translation>
    </message>
    <message>
        <source>longer than 2 MiB</source>
        <translation>2 MiB を超える長さ</translation>
    </message>
    <message>
        <source>more than 256 values</source>
        <translation>256 個を超える値</translation>
    </message>
    <message>
        <source>a different number of values than the lines before</source>
        <translation>前の行と値の数が異なる</translation>
    </message>
    <message>
        <source>its time goes backwards</source>
        <translation>時刻が戻っている</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>読み取れない</translation>
    </message>
    <message>
        <source>image %1 dropped, %2: &quot;%3&quot;</source>
        <translation>画像 %1 を破棄 (%2): &quot;%3&quot;</translation>
    </message>
    <message>
        <source>reading %1 dropped, %2: &quot;%3&quot;</source>
        <translation>測定値 %1 を破棄 (%2): &quot;%3&quot;</translation>
    </message>
    <message>
        <source>line %1 dropped, %2: &quot;%3&quot;</source>
        <translation>行 %1 を破棄 (%2): &quot;%3&quot;</translation>
    </message>
    <message>
        <source>image %1, %2: &quot;%3&quot;</source>
        <translation>画像 %1 (%2): &quot;%3&quot;</translation>
    </message>
    <message>
        <source>reading %1, %2: &quot;%3&quot;</source>
        <translation>測定値 %1 (%2): &quot;%3&quot;</translation>
    </message>
    <message>
        <source>line %1, %2: &quot;%3&quot;</source>
        <translation>行 %1 (%2): &quot;%3&quot;</translation>
    </message>
    <message>
        <source>the compressed file is damaged; --check says what is lost, and --repair saves what can be read</source>
        <translation>圧縮ファイルが壊れています。--check は失われたものを表示し、--repair は読み取れるものを救い出します</translation>
    </message>
    <message>
        <source>it should be #frame TIME ROWS COLUMNS</source>
        <translation>#frame 時刻 行数 列数 の形にしてください</translation>
    </message>
    <message>
        <source>the time is not a number</source>
        <translation>時刻が数値ではありません</translation>
    </message>
    <message>
        <source>a frame has 1 to %1 rows and columns</source>
        <translation>フレームの行数と列数は 1 から %1 までです</translation>
    </message>
    <message>
        <source>only a stream that begins with #corvale 2 has frames</source>
        <translation>フレームは #corvale 2 で始まるストリームにだけあります</translation>
    </message>
    <message>
        <source>it belongs to no frame</source>
        <translation>どのフレームにも属していません</translation>
    </message>
    <message>
        <source>row %1 of a frame, which is dropped</source>
        <translation>フレームの %1 行目。そのフレームは破棄されます</translation>
    </message>
    <message numerus="yes">
        <source>the frame ends after %n row(s)</source>
        <translation>
            <numerusform>フレームが %n 行で終わっています</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 values, but the detector has %2</source>
        <translation>値が %1 個ありますが、検出器のセルは %2 個です</translation>
    </message>
    <message>
        <source>#corvale: only the versions 1 and 2 are known</source>
        <translation>#corvale: 対応しているのはバージョン 1 と 2 だけです</translation>
    </message>
    <message>
        <source>#channels: 1 to %1 names are needed, with commas between them</source>
        <translation>#channels: コンマで区切った 1 から %1 個の名前が必要です</translation>
    </message>
    <message>
        <source>#layout: it should be channels, strips, pixels, matrix or spots</source>
        <translation>#layout: channels、strips、pixels、matrix、spots のいずれかにしてください</translation>
    </message>
    <message>
        <source>#range: two numbers are needed, the lower one first</source>
        <translation>#range: 小さい方を先にして 2 つの数値が必要です</translation>
    </message>
    <message>
        <source>#limits: the name of a channel and four numbers are needed</source>
        <translation>#limits: チャンネル名と 4 つの数値が必要です</translation>
    </message>
    <message>
        <source>#limits: there are more names than channels</source>
        <translation>#limits: 名前がチャンネルより多くあります</translation>
    </message>
    <message>
        <source>the stream has no channel &quot;%1&quot;</source>
        <translation>ストリームにチャンネル「%1」はありません</translation>
    </message>
    <message>
        <source>#t0: a date and a time are needed, like 2026-03-01T12:00:00Z</source>
        <translation>#t0: 2026-03-01T12:00:00Z のような日付と時刻が必要です</translation>
    </message>
    <message>
        <source>#t0-uncertainty: a time above 0 is needed, like 0.02 s</source>
        <translation>#t0-uncertainty: 0.02 s のような 0 より大きい時間が必要です</translation>
    </message>
    <message numerus="yes">
        <source>the image ends after %1 of %n value(s)</source>
        <translation>
            <numerusform>画像が %n 個の値のうち %1 個で終わっています</numerusform>
        </translation>
    </message>
    <message>
        <source>the image ends in its header</source>
        <translation>画像がヘッダーの途中で終わっています</translation>
    </message>
    <message>
        <source>a comment follows its largest value without a blank</source>
        <translation>最大値の後に空白なしでコメントが続いています</translation>
    </message>
    <message>
        <source>it does not begin with P2 or P5, as grey images do</source>
        <translation>グレースケール画像のように P2 または P5 で始まっていません</translation>
    </message>
    <message>
        <source>its header has other characters than digits</source>
        <translation>ヘッダーに数字以外の文字があります</translation>
    </message>
    <message>
        <source>its largest value must be 1 to %1</source>
        <translation>最大値は 1 から %1 まででなければなりません</translation>
    </message>
    <message>
        <source>value %1 is not a number</source>
        <translation>%1 番目の値が数値ではありません</translation>
    </message>
    <message>
        <source>value %1 is above %2, the largest</source>
        <translation>%1 番目の値が最大値 %2 を超えています</translation>
    </message>
    <message>
        <source>it has a line that cannot be read and would be lost: %1</source>
        <translation>読み取れず失われる行があります: %1</translation>
    </message>
    <message>
        <source>no channel is computed: the stream has %1, and only independent channels can be computed with</source>
        <translation>チャンネルは計算されません: ストリームは%1で、計算に使えるのは独立したチャンネルだけです</translation>
    </message>
    <message>
        <source>no channel is computed: there would be more than %1 channels; compute fewer</source>
        <translation>チャンネルは計算されません: チャンネルが %1 個を超えます。計算する数を減らしてください</translation>
    </message>
    <message>
        <source>no channel is computed: %1, %2</source>
        <translation>チャンネルは計算されません: %1、%2</translation>
    </message>
    <message>
        <source>ALARM: %1 above %2</source>
        <translation>アラーム: %1 が %2 を超過</translation>
    </message>
    <message>
        <source>ALARM: %1 below %2</source>
        <translation>アラーム: %1 が %2 を下回る</translation>
    </message>
    <message>
        <source>WARNING: %1 above %2</source>
        <translation>警告: %1 が %2 を超過</translation>
    </message>
    <message>
        <source>WARNING: %1 below %2</source>
        <translation>警告: %1 が %2 を下回る</translation>
    </message>
    <message>
        <source>strips</source>
        <translation>ストリップ</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>ピクセル</translation>
    </message>
    <message>
        <source>spots</source>
        <translation>スポット</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>チャンネル</translation>
    </message>
    <message numerus="yes">
        <source>it has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>検出器の測定値は %n 個ですが、ストリームは %1 個です</numerusform>
        </translation>
    </message>
    <message>
        <source>it has %1 x %2 cells, the frames %3 x %4</source>
        <translation>検出器のセルは %1 x %2 ですが、フレームは %3 x %4 です</translation>
    </message>
    <message>
        <source>its channels have no places</source>
        <translation>チャンネルに位置がありません</translation>
    </message>
    <message>
        <source>the other side reset the connection instead of closing it</source>
        <translation>相手側が接続を閉じずにリセットしました</translation>
    </message>
    <message>
        <source>the other side closed the connection</source>
        <translation>相手側が接続を閉じました</translation>
    </message>
    <message>
        <source>its text is written in UTF-16. Save the file as UTF-8</source>
        <translation>テキストが UTF-16 で書かれています。ファイルを UTF-8 で保存してください</translation>
    </message>
    <message>
        <source>column %1 is said to hold the time, but the last column is %2</source>
        <translation>時刻は %1 列目とされていますが、最後の列は %2 列目です</translation>
    </message>
    <message numerus="yes">
        <source>%n more in the log</source>
        <translation>
            <numerusform>ログにほか %n 件</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Monitor::TimeAxisActions</name>
    <message>
        <source>Time &amp;axis</source>
        <translation>時間軸(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>自動(&amp;A)</translation>
    </message>
    <message>
        <source>Local time where the source tells the moment of its readings, otherwise seconds.</source>
        <translation>ソースが測定の時刻を示す場合は現地時刻、それ以外は秒。</translation>
    </message>
    <message>
        <source>&amp;Seconds</source>
        <translation>秒(&amp;S)</translation>
    </message>
    <message>
        <source>The times as the source gives them.</source>
        <translation>ソースの時刻のまま。</translation>
    </message>
    <message>
        <source>&amp;Relative</source>
        <translation>相対(&amp;R)</translation>
    </message>
    <message>
        <source>The time from the newest reading.</source>
        <translation>最新の測定値からの時間。</translation>
    </message>
    <message>
        <source>&amp;Local time</source>
        <translation>現地時刻(&amp;L)</translation>
    </message>
    <message>
        <source>Date and time in the time zone of this computer.</source>
        <translation>このコンピューターの時間帯での日時。</translation>
    </message>
    <message>
        <source>&amp;UTC</source>
        <translation>UTC(&amp;U)</translation>
    </message>
    <message>
        <source>Date and time in UTC.</source>
        <translation>UTC での日時。</translation>
    </message>
</context>
<context>
    <name>Monitor::TriggerAction</name>
    <message>
        <source>&amp;Trigger...</source>
        <translation>トリガー(&amp;T)...</translation>
    </message>
</context>
<context>
    <name>Monitor::TriggerDialog</name>
    <message>
        <source>Readings that pass this level begin a sweep</source>
        <translation>このレベルを横切る測定値で掃引を始めます</translation>
    </message>
    <message>
        <source>How far a reading must have been on the other side of the level; more than the noise</source>
        <translation>測定値がレベルの反対側にどれだけ離れていたか。ノイズより大きくします</translation>
    </message>
    <message>
        <source>Shortest time between two triggers</source>
        <translation>トリガー間の最短時間</translation>
    </message>
    <message>
        <source>&amp;Arm</source>
        <translation>待機開始(&amp;A)</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>トリガー</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>ノーマル</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>シングル</translation>
    </message>
    <message>
        <source>Automatic shows sweeps also where no trigger comes; Single shows one</source>
        <translation>自動はトリガーがなくても掃引を表示し、シングルは一つだけ表示します</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>立ち上がり</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>立ち下がり</translation>
    </message>
    <message>
        <source>Either</source>
        <translation>両方</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Share of the sweep that lies before the trigger</source>
        <translation>掃引のうちトリガー前の割合</translation>
    </message>
    <message>
        <source>Wait for the next trigger</source>
        <translation>次のトリガーを待つ</translation>
    </message>
    <message>
        <source>&amp;Mode:</source>
        <translation>モード(&amp;M):</translation>
    </message>
    <message>
        <source>&amp;Channel:</source>
        <translation>チャンネル(&amp;C):</translation>
    </message>
    <message>
        <source>&amp;Level:</source>
        <translation>レベル(&amp;L):</translation>
    </message>
    <message>
        <source>&amp;Edge:</source>
        <translation>エッジ(&amp;E):</translation>
    </message>
    <message>
        <source>&amp;Hysteresis:</source>
        <translation>ヒステリシス(&amp;H):</translation>
    </message>
    <message>
        <source>&amp;Before the trigger:</source>
        <translation>トリガー前(&amp;B):</translation>
    </message>
    <message>
        <source>Hold-&amp;off in s:</source>
        <translation>ホールドオフ (s)(&amp;O):</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>状態:</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Numbers need a decimal point; hysteresis and hold-off are 0 or more.</source>
        <translation>数値の小数点はピリオドです。ヒステリシスとホールドオフは 0 以上です。</translation>
    </message>
    <message>
        <source>Armed</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>Triggered</source>
        <translation>トリガー済み</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
</context>
<context>
    <name>Monitor::ValueActions</name>
    <message>
        <source>&amp;Value axis...</source>
        <translation>値の軸(&amp;V)...</translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <translation>凡例(&amp;L)</translation>
    </message>
    <message>
        <source>Channel &amp;names under bars</source>
        <translation>棒の下にチャンネル名(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>カラー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Eight colours</source>
        <translation>8 色(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Many colours, with dashes</source>
        <translation>多色 (破線あり)(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Safe for colour-blind eyes, with dashes</source>
        <translation>色覚に配慮 (破線あり)(&amp;S)</translation>
    </message>
</context>
<context>
    <name>Monitor::ValueAxisDialog</name>
    <message>
        <source>Value axis</source>
        <translation>値の軸</translation>
    </message>
    <message>
        <source>In the unit of the axis, or with a unit: -20, 250 pA. Enter sets it.</source>
        <translation>軸の単位で、または単位付きで: -20、250 pA。Enter で設定します。</translation>
    </message>
    <message>
        <source>Automatic chooses the unit that suits the scale.</source>
        <translation>自動は目盛りに合う単位を選びます。</translation>
    </message>
    <message>
        <source>Ma&amp;ximum:</source>
        <translation>最大(&amp;X):</translation>
    </message>
    <message>
        <source>Mi&amp;nimum:</source>
        <translation>最小(&amp;N):</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>単位(&amp;U):</translation>
    </message>
    <message>
        <source>&amp;Logarithmic</source>
        <translation>対数(&amp;L)</translation>
    </message>
    <message>
        <source>Values that are 0 or negative cannot be shown then; the plot names their channels (Alt+L)</source>
        <translation>0 または負の値は表示できず、プロットにそのチャンネル名が示されます (Alt+L)</translation>
    </message>
    <message>
        <source>&amp;Set range</source>
        <translation>範囲を設定(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>自動(&amp;A)</translation>
    </message>
    <message>
        <source>Show the range from minimum to maximum (Enter)</source>
        <translation>最小から最大までの範囲を表示 (Enter)</translation>
    </message>
    <message>
        <source>Let the range follow the readings (Alt+A)</source>
        <translation>範囲を測定値に追従させる (Alt+A)</translation>
    </message>
    <message>
        <source>The minimum must be below the maximum.</source>
        <translation>最小は最大より小さくしてください。</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>自動 (%1)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value in %2. Write one like -20, or with its unit like 250 pA.</source>
        <translation>「%1」は %2 の値ではありません。-20 のように、または単位を付けて 250 pA のように入力してください。</translation>
    </message>
    <message>
        <source>&amp;Right maximum:</source>
        <translation>右の最大(&amp;R):</translation>
    </message>
    <message>
        <source>Ri&amp;ght minimum:</source>
        <translation>右の最小(&amp;G):</translation>
    </message>
    <message>
        <source>Righ&amp;t unit:</source>
        <translation>右の単位(&amp;T):</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number. Write one like -20 or 2.5e-7.</source>
        <translation>「%1」は数値ではありません。-20 や 2.5e-7 のように入力してください。</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
</context>
<context>
    <name>Monitor::VerdictPage</name>
    <message>
        <source>Res&amp;iduals, poor:</source>
        <translation>残差、不良(&amp;I):</translation>
    </message>
    <message>
        <source>R&amp;2:</source>
        <translation>R2(&amp;2):</translation>
    </message>
    <message>
        <source>A fit with a smaller R2 is poor.</source>
        <translation>R2 がこれより小さいフィットは不良です。</translation>
    </message>
    <message>
        <source>Cha&amp;rge in bad cells:</source>
        <translation>不良セルの電荷(&amp;R):</translation>
    </message>
    <message>
        <source>&amp;Background:</source>
        <translation>バックグラウンド(&amp;B):</translation>
    </message>
    <message>
        <source>Resid&amp;uals, not valid:</source>
        <translation>残差、無効(&amp;U):</translation>
    </message>
    <message>
        <source>&amp;Widest sigma:</source>
        <translation>最大のシグマ(&amp;W):</translation>
    </message>
    <message>
        <source>&amp;Peak over noise:</source>
        <translation>ピーク対ノイズ(&amp;P):</translation>
    </message>
    <message>
        <source>Profile, histogram and report say &quot;DATA VALID&quot;, &quot;DATA VALID, FIT POOR&quot; or &quot;DATA NOT VALID&quot; by these limits. A detector whose description states limits of its own (its key &quot;verdict&quot;) is judged by those alone. --stats takes these limits from --settings FILE.</source>
        <translation>プロファイル、ヒストグラム、レポートは、これらの限界によって「データ有効」「データ有効、フィット不良」「データ無効」と表示します。記述に独自の限界（キー &quot;verdict&quot;）がある検出器は、その限界だけで判定されます。--stats はこれらの限界を --settings FILE から取ります。</translation>
    </message>
    <message>
        <source>%1 Usual: %2.</source>
        <translation>%1 標準: %2。</translation>
    </message>
    <message>
        <source>Usua&amp;l limits</source>
        <translation>標準の限界(&amp;L)</translation>
    </message>
    <message>
        <source>A fit whose residuals (rms over the peak) are larger is poor.</source>
        <translation>残差（ピークに対する RMS）がこれより大きいフィットは不良です。</translation>
    </message>
    <message>
        <source>A fit is poor if this much of the charge lies in dead, hot or saturated cells.</source>
        <translation>電荷のこの割合が不感・ホット・飽和セルにあるフィットは不良です。</translation>
    </message>
    <message>
        <source>An estimate that does not subtract a background this large, over the peak, is poor.</source>
        <translation>ピークに対してこれほど大きいバックグラウンドを差し引かない推定は不良です。</translation>
    </message>
    <message>
        <source>A fit whose residuals (rms over the peak) are larger is not valid.</source>
        <translation>残差（ピークに対する RMS）がこれより大きいフィットは無効です。</translation>
    </message>
    <message>
        <source>A result with a wider sigma, over the length of the detector, is not valid.</source>
        <translation>検出器の長さに対するシグマがこれより大きい結果は無効です。</translation>
    </message>
    <message>
        <source>A peak that is lower than this many times the noise is not taken for a beam.</source>
        <translation>ノイズのこの倍数より低いピークはビームとみなしません。</translation>
    </message>
</context>
<context>
    <name>Monitor::ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>Values and cha&amp;nnels</source>
        <translation>値とチャンネル(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>一時停止(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Time span</source>
        <translation>時間幅(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Strip chart</source>
        <translation>ストリップチャート(&amp;S)</translation>
    </message>
    <message>
        <source>S&amp;cope</source>
        <translation>スコープ(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Histogram</source>
        <translation>ヒストグラム(&amp;H)</translation>
    </message>
    <message>
        <source>2D pro&amp;file</source>
        <translation>2D プロファイル(&amp;F)</translation>
    </message>
    <message>
        <source>P&amp;osition</source>
        <translation>位置(&amp;O)</translation>
    </message>
    <message>
        <source>Spot &amp;map</source>
        <translation>スポットマップ(&amp;M)</translation>
    </message>
    <message>
        <source>Position &amp;errors</source>
        <translation>位置誤差(&amp;E)</translation>
    </message>
    <message>
        <source>F&amp;ull screen</source>
        <translation>全画面(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Big numbers</source>
        <translation>大きな数字(&amp;B)</translation>
    </message>
</context>
<context>
    <name>TangoText</name>
    <message>
        <source>&quot;%1&quot; should be tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE, with #dbase=no at its end where HOST:PORT is a device server, not a database</source>
        <translation>「%1」は tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE の形で指定してください。HOST:PORT がデータベースではなくデバイスサーバーの場合は末尾に #dbase=no を付けます</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names %2 attributes; a window shows %3 at most</source>
        <translation>「%1」には %2 個の属性があります。ウィンドウに表示できるのは %3 個までです</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: only ?every=100ms may follow the attributes, with a time from 1 ms to 60 min</source>
        <translation>「%1」: 属性の後に指定できるのは ?every=100ms だけで、時間は 1 ms から 60 min までです</translation>
    </message>
    <message>
        <source>an error without a description</source>
        <translation>説明のないエラー</translation>
    </message>
    <message>
        <source>%1 does not answer in time</source>
        <translation>%1 が時間内に応答しません</translation>
    </message>
    <message>
        <source>there is no device %1</source>
        <translation>デバイス %1 はありません</translation>
    </message>
    <message>
        <source>no server answers for %1</source>
        <translation>%1 に応答するサーバーがありません</translation>
    </message>
    <message>
        <source>%1 is an image of %2 x %3 values; a window shows at most %4 x %4</source>
        <translation>%1 は %2 x %3 個の値の画像です。ウィンドウに表示できるのは %4 x %4 までです</translation>
    </message>
    <message>
        <source>%1 has %2 values; a window shows at most %3</source>
        <translation>%1 の値は %2 個です。ウィンドウに表示できるのは %3 個までです</translation>
    </message>
    <message>
        <source>its values cannot be read as numbers</source>
        <translation>値を数として読み取れません</translation>
    </message>
    <message>
        <source>Check the names, that the device server runs, and that the address ends with #dbase=no if its host and port are those of a device server.</source>
        <translation>名前が正しいこと、デバイスサーバーが動作していること、ホストとポートがデバイスサーバーのものである場合はアドレスの末尾に #dbase=no があることを確認してください。</translation>
    </message>
    <message>
        <source>%1, without %2, which has no valid value</source>
        <translation>%1（%2 には有効な値がありません）</translation>
    </message>
    <message>
        <source>%1 is of the type %2, not a number</source>
        <translation>%1 の型は %2 で、数ではありません</translation>
    </message>
    <message>
        <source>a window shows scalars, or one spectrum or two, or one image; read the others in a window of their own</source>
        <translation>ウィンドウに表示できるのは、スカラー、1 つか 2 つのスペクトル、または 1 つの画像です。ほかのものは別のウィンドウで読み取ってください</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names the attribute %2 twice</source>
        <translation>「%1」では属性 %2 が 2 回指定されています</translation>
    </message>
    <message>
        <source>%1 does not tell what its attributes are</source>
        <translation>%1 から属性の設定を取得できません</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tango:DOMAIN/FAMILY/MEMBER, a device that is defined in the database, or tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no, which is served at that address without a database</source>
        <translation>「%1」は、データベースで定義された機器 tango:DOMAIN/FAMILY/MEMBER か、データベースなしでそのアドレスで提供される tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no にしてください</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 が二度指定されています</translation>
    </message>
    <message>
        <source>all devices of a run belong to one server, with the same host and port</source>
        <translation>一回の実行の機器は、同じホストとポートの一つのサーバーに属する必要があります</translation>
    </message>
    <message>
        <source>the database has no device %1; define it with: tango_admin --add-server %2/%3 CorvaleMonitor %1</source>
        <translation>データベースに機器 %1 がありません。次の命令で定義してください: tango_admin --add-server %2/%3 CorvaleMonitor %1</translation>
    </message>
    <message>
        <source>the device %1 belongs to the server %2, not to %3</source>
        <translation>機器 %1 はサーバー %2 のもので、%3 のものではありません</translation>
    </message>
    <message>
        <source>the database has %1 and %2 in different servers; one run serves one of them</source>
        <translation>データベースでは %1 と %2 は別のサーバーにあります。一回の実行で提供できるのは一つです</translation>
    </message>
    <message>
        <source>another program serves %1 already</source>
        <translation>別のプログラムがすでに %1 を提供しています</translation>
    </message>
    <message>
        <source>the database does not answer: %1</source>
        <translation>データベースが応答しません: %1</translation>
    </message>
    <message>
        <source>nothing can listen at %1:%2: another program does, or the host is not this computer</source>
        <translation>%1:%2 で待ち受けできません。別のプログラムが使っているか、ホストがこの計算機ではありません</translation>
    </message>
    <message>
        <source>the server does not have all of the devices</source>
        <translation>サーバーにすべての機器がそろっていません</translation>
    </message>
    <message>
        <source>the database does not answer in time</source>
        <translation>データベースが時間内に応答しません</translation>
    </message>
</context>
</TS>
