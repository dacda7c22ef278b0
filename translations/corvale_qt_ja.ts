<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Corvale_Qt</name>
    <message>
        <source>cells</source>
        <translation>セル</translation>
    </message>
    <message>
        <source>the numbers are too large to be shown</source>
        <translation>数値が大きすぎて表示できません</translation>
    </message>
    <message>
        <source>the fit failed</source>
        <translation>フィットに失敗しました</translation>
    </message>
    <message>
        <source>is not a usable length</source>
        <translation>は使用できる長さではありません</translation>
    </message>
    <message>
        <source>%1 follows %2: positions must rise, or fall, without repeating</source>
        <translation>%2 の次が %1 です: 位置は重複なく増加または減少しなければなりません</translation>
    </message>
    <message>
        <source>is not above 0</source>
        <translation>は 0 より大きくありません</translation>
    </message>
    <message>
        <source>overlaps the cell before it</source>
        <translation>は直前のセルと重なっています</translation>
    </message>
    <message>
        <source>must be between 0 and %1</source>
        <translation>は 0 から %1 の間でなければなりません</translation>
    </message>
    <message>
        <source>is not a text of at most %1 characters</source>
        <translation>は %1 文字以内のテキストではありません</translation>
    </message>
    <message>
        <source>is stated beside positions</source>
        <translation>は位置と同時に指定されています</translation>
    </message>
    <message>
        <source>more than 100 %</source>
        <translation>100 % 超</translation>
    </message>
    <message>
        <source>no peak above %1 times the noise</source>
        <translation>ノイズの %1 倍を超えるピークがありません</translation>
    </message>
    <message>
        <source>%1 of the charge lies in dead, hot or saturated cells</source>
        <translation>電荷の %1 が不感・ホット・飽和セルにあります</translation>
    </message>
    <message>
        <source>the position lies outside of the detector</source>
        <translation>位置が検出器の外にあります</translation>
    </message>
    <message>
        <source>sigma does not fit on the detector</source>
        <translation>シグマが検出器に収まりません</translation>
    </message>
    <message>
        <source>no cell shows whether a Gaussian describes the readings</source>
        <translation>ガウス分布が測定値に合うかを示すセルがありません</translation>
    </message>
    <message>
        <source>the residuals are %1 of the peak</source>
        <translation>残差がピークの %1 です</translation>
    </message>
    <message>
        <source>R2 is %1</source>
        <translation>R2 は %1</translation>
    </message>
    <message>
        <source>a background of %1 of the peak is not subtracted, and widens sigma</source>
        <translation>ピークの %1 のバックグラウンドが差し引かれておらず、シグマが広がっています</translation>
    </message>
    <message>
        <source>the beam is at the edge of the detector</source>
        <translation>ビームが検出器の端にあります</translation>
    </message>
    <message>
        <source>%1 of the charge lies outside of the detector</source>
        <translation>電荷の %1 が検出器の外にあります</translation>
    </message>
    <message>
        <source>the area of integration was cut at the edge of the detector</source>
        <translation>積分領域が検出器の端で切れています</translation>
    </message>
    <message>
        <source>DATA VALID</source>
        <translation>データ有効</translation>
    </message>
    <message>
        <source>DATA VALID, FIT POOR</source>
        <translation>データ有効、フィット不良</translation>
    </message>
    <message>
        <source>DATA NOT VALID</source>
        <translation>データ無効</translation>
    </message>
    <message>
        <source>the readings or their positions are not usable</source>
        <translation>測定値またはその位置が使用できません</translation>
    </message>
    <message>
        <source>there are not enough cells</source>
        <translation>セルが足りません</translation>
    </message>
    <message>
        <source>there is no charge above the background</source>
        <translation>バックグラウンドを超える電荷がありません</translation>
    </message>
    <message>
        <source>the peak lies at the edge of the detector</source>
        <translation>ピークが検出器の端にあります</translation>
    </message>
    <message>
        <source>the width is not a real number</source>
        <translation>幅が実数になりません</translation>
    </message>
    <message>
        <source>the iteration did not converge</source>
        <translation>反復計算が収束しませんでした</translation>
    </message>
    <message>
        <source>no Gaussian: the beam is flat-topped</source>
        <translation>ガウス分布ではありません: ビームの頂部が平坦です</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>がありません</translation>
    </message>
    <message>
        <source>there is no such channel</source>
        <translation>そのチャンネルはありません</translation>
    </message>
    <message>
        <source>must be the version, 1</source>
        <translation>はバージョン番号 1 でなければなりません</translation>
    </message>
    <message>
        <source>the text is longer than %1 MiB</source>
        <translation>テキストが %1 MiB を超えています</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is given twice, or with a backslash</source>
        <translation>キー「%1」が二度指定されているか、バックスラッシュを含んでいます</translation>
    </message>
    <message>
        <source>this is not an object in braces</source>
        <translation>波括弧で囲まれたオブジェクトではありません</translation>
    </message>
    <message>
        <source>a matrix has rows and columns</source>
        <translation>マトリクスには行と列が必要です</translation>
    </message>
    <message>
        <source>a list of channels has no axes</source>
        <translation>チャンネルのリストに軸はありません</translation>
    </message>
    <message>
        <source>the strips of neither x nor y are stated</source>
        <translation>x と y のどちらのストリップも指定されていません</translation>
    </message>
    <message>
        <source>there is no reading %1</source>
        <translation>測定値 %1 はありません</translation>
    </message>
    <message>
        <source>reading %1 is wired twice</source>
        <translation>測定値 %1 が二重に配線されています</translation>
    </message>
    <message>
        <source>is 0 or not a usable number</source>
        <translation>は 0 か、使用できない数値です</translation>
    </message>
    <message>
        <source>is not a usable number</source>
        <translation>は使用できる数値ではありません</translation>
    </message>
    <message>
        <source>must be between 1 and %1</source>
        <translation>は 1 から %1 の間でなければなりません</translation>
    </message>
    <message>
        <source>positions in cells</source>
        <translation>位置はセル単位</translation>
    </message>
    <message>
        <source>no detector</source>
        <translation>検出器なし</translation>
    </message>
    <message>
        <source>strips %1 + %2, %3</source>
        <translation>ストリップ %1 + %2、%3</translation>
    </message>
    <message>
        <source>matrix %1 x %2, %3</source>
        <translation>マトリクス %1 x %2、%3</translation>
    </message>
    <message>
        <source>number %1, &quot;%2&quot;, is not a number</source>
        <translation>%1 番目の「%2」は数値ではありません</translation>
    </message>
    <message>
        <source>the numbers are missing</source>
        <translation>数値がありません</translation>
    </message>
    <message>
        <source>the pitch is not a number above 0</source>
        <translation>ピッチが 0 より大きい数値ではありません</translation>
    </message>
    <message>
        <source>the offset is not a number</source>
        <translation>オフセットが数値ではありません</translation>
    </message>
    <message>
        <source>the direction is neither forward nor reverse</source>
        <translation>方向が forward でも reverse でもありません</translation>
    </message>
    <message>
        <source>two numbers of cells must follow strips or matrix</source>
        <translation>strips または matrix の後にはセル数が二つ必要です</translation>
    </message>
    <message>
        <source>there is no channel %1; channels are counted from 1</source>
        <translation>チャンネル %1 はありません。チャンネルは 1 から数えます</translation>
    </message>
    <message>
        <source>the noise is not a number above 0</source>
        <translation>ノイズが 0 より大きい数値ではありません</translation>
    </message>
    <message>
        <source>nothing may follow</source>
        <translation>この後には何も続けられません</translation>
    </message>
    <message>
        <source>there is no channel %1</source>
        <translation>チャンネル %1 はありません</translation>
    </message>
    <message>
        <source>character %1: %2</source>
        <translation>%1 文字目: %2</translation>
    </message>
    <message>
        <source>there is no expression</source>
        <translation>式がありません</translation>
    </message>
    <message>
        <source>the expression ends too early</source>
        <translation>式が途中で終わっています</translation>
    </message>
    <message>
        <source>a parenthesis is not closed</source>
        <translation>括弧が閉じられていません</translation>
    </message>
    <message>
        <source>this parenthesis has no counterpart, or nothing in it</source>
        <translation>この括弧は対応がないか、中身がありません</translation>
    </message>
    <message>
        <source>the function has too many arguments</source>
        <translation>関数の引数が多すぎます</translation>
    </message>
    <message>
        <source>the function has too few arguments</source>
        <translation>関数の引数が足りません</translation>
    </message>
    <message>
        <source>a value is missing before this operator</source>
        <translation>この演算子の前に値がありません</translation>
    </message>
    <message>
        <source>an operator is missing before this</source>
        <translation>この前に演算子がありません</translation>
    </message>
    <message>
        <source>this comma does not separate the arguments of a function</source>
        <translation>このコンマは関数の引数を区切っていません</translation>
    </message>
    <message>
        <source>&quot;?&quot; and &quot;:&quot; do not belong together here</source>
        <translation>ここの「?」と「:」は対応していません</translation>
    </message>
    <message>
        <source>this cannot be understood</source>
        <translation>これは解釈できません</translation>
    </message>
    <message>
        <source>The channels belong to several planes.</source>
        <translation>チャンネルが複数の面に属しています。</translation>
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
    <message>
        <source>all</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: a time span is at least %2 and at most %3.</source>
        <translation>「%1」: 時間幅は %2 以上 %3 以下です。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time span. Examples: 90 s, 2 h, 1.5 min, 250 ms, all.</source>
        <translation>「%1」は時間幅ではありません。例: 90 s, 2 h, 1.5 min, 250 ms, すべて</translation>
    </message>
    <message>
        <source>is not a number from 0 on</source>
        <translation>は 0 以上の数値ではありません</translation>
    </message>
    <message>
        <source>all other cells read 0: hot, or a beam narrower than a cell</source>
        <translation>他のすべてのセルが 0 です：ホットセル、またはセルより細いビーム</translation>
    </message>
    <message>
        <source>%1, then %2</source>
        <comment>UTC+1, then UTC+2</comment>
        <translation>%1、その後 %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>UTC+1 or UTC+2</comment>
        <translation>%1 または %2</translation>
    </message>
    <message numerus="yes">
        <source> frame(s)</source>
        <translation>
            <numerusform> フレーム</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>average of %n frame(s)</source>
        <translation>
            <numerusform>%n フレームの平均</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>taking the background: %n frame(s) to come</source>
        <translation>
            <numerusform>バックグラウンド取得中: 残り %n フレーム</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) subtracted</source>
        <translation>
            <numerusform>%n フレームのバックグラウンドを差し引き済み</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) not subtracted</source>
        <translation>
            <numerusform>%n フレームのバックグラウンドは差し引かれていません</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong to no cell: %1 left out</source>
        <translation>
            <numerusform>%n 個の測定値がどのセルにも属していません: %1 は除外されました</numerusform>
        </translation>
    </message>
    <message>
        <source>has %1 for %2</source>
        <translation>は %2に対して%1があります</translation>
    </message>
    <message numerus="yes">
        <source>%n width(s)</source>
        <translation>
            <numerusform>幅 %n 個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s)</source>
        <translation>
            <numerusform>%n 個のセル</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n position(s)</source>
        <translation>
            <numerusform>位置 %n 個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n number(s)</source>
        <translation>
            <numerusform>数値 %n 個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s)</source>
        <translation>
            <numerusform>%n 個の測定値</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n name(s)</source>
        <translation>
            <numerusform>名前 %n 個</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not the number of a reading</source>
        <translation>%1 は測定値の番号ではありません</translation>
    </message>
    <message>
        <source>there are fewer readings (%1) than cells (%2)</source>
        <translation>測定値 (%1) がセル (%2) より少なくなっています</translation>
    </message>
    <message numerus="yes">
        <source>%n entry/entries</source>
        <translation>
            <numerusform>項目 %n 個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s)</source>
        <translation>
            <numerusform>%n チャンネル</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the detector has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>検出器の測定値は %n 個、ストリームは %1 個です</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1
%n sample(s) would go.</source>
        <translation>
            <numerusform>%1
%n 個の測定値が失われます。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::AxisLine</name>
    <message>
        <source>the unit is missing</source>
        <translation>単位がありません</translation>
    </message>
    <message>
        <source>the unit is %1, but %2 before</source>
        <translation>単位が %1 ですが、前は %2 でした</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::ChannelExpressionsPrivate</name>
    <message>
        <source>the computed channel has no name</source>
        <translation>計算チャンネルに名前がありません</translation>
    </message>
    <message>
        <source>there is already a channel called &quot;%1&quot;</source>
        <translation>「%1」という名前のチャンネルは既にあります</translation>
    </message>
    <message>
        <source>the expression is too long</source>
        <translation>式が長すぎます</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is computed from itself</source>
        <translation>「%1」がそれ自身から計算されています</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::DetectorControls</name>
    <message>
        <source>Detector</source>
        <translation>検出器</translation>
    </message>
    <message>
        <source>Logarithmic colours</source>
        <translation>対数カラー</translation>
    </message>
    <message>
        <source>Projections</source>
        <translation>射影</translation>
    </message>
    <message>
        <source>Colours from</source>
        <translation>カラー範囲</translation>
    </message>
    <message>
        <source>Subtract background</source>
        <translation>バックグラウンドを差し引く</translation>
    </message>
    <message>
        <source>Centre of gravity</source>
        <translation>重心</translation>
    </message>
    <message>
        <source>Three points</source>
        <translation>3 点法</translation>
    </message>
    <message>
        <source>Regression</source>
        <translation>回帰</translation>
    </message>
    <message>
        <source>Least squares</source>
        <translation>最小二乗法</translation>
    </message>
    <message>
        <source>Half maximum</source>
        <translation>半値</translation>
    </message>
    <message>
        <source>Second moment</source>
        <translation>二次モーメント</translation>
    </message>
    <message>
        <source>How mean and sigma are found</source>
        <translation>平均とシグマの求め方</translation>
    </message>
    <message>
        <source>Averaged frames</source>
        <translation>平均するフレーム数</translation>
    </message>
    <message>
        <source>Frames of the background</source>
        <translation>バックグラウンドのフレーム数</translation>
    </message>
    <message>
        <source>Lowest value of the colours</source>
        <translation>カラーの最小値</translation>
    </message>
    <message>
        <source>Highest value of the colours</source>
        <translation>カラーの最大値</translation>
    </message>
    <message>
        <source>Take background</source>
        <translation>バックグラウンドを取得</translation>
    </message>
    <message>
        <source>Estimator</source>
        <translation>推定法</translation>
    </message>
    <message>
        <source>to</source>
        <translation>～</translation>
    </message>
    <message>
        <source>Average of</source>
        <translation>平均</translation>
    </message>
    <message>
        <source>Clear background</source>
        <translation>バックグラウンドを消去</translation>
    </message>
    <message>
        <source>Show the whole detector</source>
        <translation>検出器全体を表示</translation>
    </message>
    <message>
        <source>Save the frame as CSV…</source>
        <translation>フレームを CSV で保存…</translation>
    </message>
    <message>
        <source>Save a picture…</source>
        <translation>画像を保存…</translation>
    </message>
    <message>
        <source>Save a picture</source>
        <translation>画像を保存</translation>
    </message>
    <message>
        <source>Save the frame</source>
        <translation>フレームを保存</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>画像 (*.png)</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV ファイル (*.csv)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Error saving data file.</source>
        <translation>データファイルの保存中にエラーが発生しました。</translation>
    </message>
    <message>
        <source>Least squares, linear background</source>
        <translation>最小二乗法、直線バックグラウンド</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::DetectorFault</name>
    <message>
        <source>line %1, %2</source>
        <translation>%1 行目、%2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HeldMark</name>
    <message>
        <source>Held</source>
        <translation>ホールド中</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>ライブ</translation>
    </message>
    <message>
        <source>The picture stands still while readings come. Show the newest ones again (End).</source>
        <translation>測定値の受信中も表示は止まっています。最新の測定値に戻ります (End)。</translation>
    </message>
    <message>
        <source>Y zoomed</source>
        <translation>Y 拡大中</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>全体</translation>
    </message>
    <message>
        <source>The y axis shows a part of its scale. Show the whole scale again (End).</source>
        <translation>y 軸は目盛りの一部だけを表示しています。全体の表示に戻ります (End)。</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HistogramPlaces</name>
    <message>
        <source>cells</source>
        <translation>セル</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HoverCursor</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>他 %n 個</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::JsonMembers</name>
    <message>
        <source>is not a number</source>
        <translation>は数値ではありません</translation>
    </message>
    <message>
        <source>is not a whole number from 0 to %1</source>
        <translation>は 0 から %1 の整数ではありません</translation>
    </message>
    <message>
        <source>is neither true nor false</source>
        <translation>は true でも false でもありません</translation>
    </message>
    <message>
        <source>is not a text</source>
        <translation>はテキストではありません</translation>
    </message>
    <message>
        <source>there are too many items</source>
        <translation>項目が多すぎます</translation>
    </message>
    <message>
        <source>is not a list of numbers</source>
        <translation>は数値のリストではありません</translation>
    </message>
    <message>
        <source>is not a list of texts</source>
        <translation>はテキストのリストではありません</translation>
    </message>
    <message>
        <source>is none of: %1</source>
        <translation>は次のいずれでもありません: %1</translation>
    </message>
    <message>
        <source>is not an object in braces</source>
        <translation>は波括弧で囲まれたオブジェクトではありません</translation>
    </message>
    <message>
        <source>is not a known key</source>
        <translation>は未知のキーです</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::LayoutView</name>
    <message>
        <source>Intensity</source>
        <translation>強度</translation>
    </message>
    <message>
        <source>Intensity (%1)</source>
        <translation>強度 (%1)</translation>
    </message>
    <message>
        <source>not wired</source>
        <translation>未配線</translation>
    </message>
    <message>
        <source>channel %1</source>
        <translation>チャンネル %1</translation>
    </message>
    <message>
        <source>dead</source>
        <translation>不感</translation>
    </message>
    <message>
        <source>saturated</source>
        <translation>飽和</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::LegendModel</name>
    <message>
        <source>High warning</source>
        <translation>上限警告</translation>
    </message>
    <message>
        <source>Low warning</source>
        <translation>下限警告</translation>
    </message>
    <message>
        <source>Low alarm</source>
        <translation>下限アラーム</translation>
    </message>
    <message>
        <source>High alarm</source>
        <translation>上限アラーム</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1: click or press Enter to hide or show it</source>
        <translation>%1: クリックまたは Enter で表示と非表示を切り替えます</translation>
    </message>
    <message>
        <source>%1, right axis</source>
        <translation>%1、右軸</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::MeanTimePlot</name>
    <message>
        <source>Time (s)</source>
        <translation>時間 (s)</translation>
    </message>
    <message>
        <source>Position (mm)</source>
        <translation>位置 (mm)</translation>
    </message>
    <message>
        <source>Mean X</source>
        <translation>平均 X</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>平均 Y</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::PlotDataExport</name>
    <message>
        <source>there are no rows to save</source>
        <translation>保存する行がありません</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXAbstractDeviceDataModel</name>
    <message>
        <source>Time (s)</source>
        <translation>時間 (s)</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXComputedChannelsProxyModel</name>
    <message>
        <source>no reading</source>
        <translation>測定値なし</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXLatestPlotDataProxyModel</name>
    <message>
        <source>Data</source>
        <translation>データ</translation>
    </message>
    <message>
        <source>Data (%1)</source>
        <translation>データ (%1)</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>チャンネル</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXLogBrowser</name>
    <message>
        <source>widget title</source>
        <translation>ウィジェットのタイトル</translation>
    </message>
    <message>
        <source>log</source>
        <translation>ログ</translation>
    </message>
    <message>
        <source>clear log contents</source>
        <translation>ログの内容を消去</translation>
    </message>
    <message>
        <source>clear</source>
        <translation>消去</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXMultichannelDeviceModel</name>
    <message>
        <source>no reading</source>
        <translation>測定値なし</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPopOutTabWidget</name>
    <message>
        <source>Put back into its tab</source>
        <translation>タブに戻す</translation>
    </message>
    <message>
        <source>Open &quot;%1&quot; in a window</source>
        <translation>「%1」をウィンドウで開く</translation>
    </message>
    <message>
        <source>Put &quot;%1&quot; back</source>
        <translation>「%1」を戻す</translation>
    </message>
    <message>
        <source>Put all back</source>
        <translation>すべて戻す</translation>
    </message>
    <message>
        <source>All pages are in separate windows.
Close a window to put its page back.</source>
        <translation>すべてのページが別ウィンドウにあります。
ウィンドウを閉じるとページがここに戻ります。</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPositionErrorPlot</name>
    <message>
        <source>Mean Error (X, Y):</source>
        <translation>平均誤差 (X, Y):</translation>
    </message>
    <message>
        <source>Mean of the X errors</source>
        <translation>X 誤差の平均</translation>
    </message>
    <message>
        <source>Mean of the Y errors</source>
        <translation>Y 誤差の平均</translation>
    </message>
    <message>
        <source>(mm)</source>
        <translation>(mm)</translation>
    </message>
    <message>
        <source>Energy:</source>
        <translation>エネルギー:</translation>
    </message>
    <message>
        <source>Beam energy of the newest spot</source>
        <translation>最新スポットのビームエネルギー</translation>
    </message>
    <message>
        <source>(MeV)</source>
        <translation>(MeV)</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Spot Position Error</source>
        <translation>スポット位置誤差</translation>
    </message>
    <message>
        <source>X Error (mm)</source>
        <translation>X 誤差 (mm)</translation>
    </message>
    <message>
        <source>Y Error (mm)</source>
        <translation>Y 誤差 (mm)</translation>
    </message>
    <message>
        <source>no spots</source>
        <translation>スポットなし</translation>
    </message>
    <message>
        <source>Spots: %1</source>
        <translation>スポット: %1</translation>
    </message>
    <message>
        <source>outside of the tolerance: %1</source>
        <translation>許容範囲外: %1</translation>
    </message>
    <message>
        <source>mean X error %1 mm; mean Y error %2 mm</source>
        <translation>平均 X 誤差 %1 mm; 平均 Y 誤差 %2 mm</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPositionPlot</name>
    <message>
        <source>no beam</source>
        <translation>ビームなし</translation>
    </message>
    <message>
        <source>Y Position</source>
        <translation>Y 位置</translation>
    </message>
    <message>
        <source>X Position</source>
        <translation>X 位置</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>no position yet</source>
        <translation>位置はまだありません</translation>
    </message>
    <message>
        <source>newest position</source>
        <translation>最新の位置</translation>
    </message>
    <message>
        <source>position not valid</source>
        <translation>位置は無効</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScope</name>
    <message>
        <source>Form</source>
        <translation>フォーム</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>プロット</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Plot mode</source>
        <translation>プロットモード</translation>
    </message>
    <message>
        <source>What is plotted: the newest samples scrolling by, one sweep after the other, or the newest sample of each channel as a bar.</source>
        <translation>プロットの内容: 最新の測定値のスクロール表示、掃引ごとの表示、または各チャンネルの最新値の棒グラフ。</translation>
    </message>
    <message>
        <source>State of the data</source>
        <translation>データの状態</translation>
    </message>
    <message>
        <source>What is done to the data before it is shown.</source>
        <translation>表示前にデータに施す処理。</translation>
    </message>
    <message>
        <source>Number of data samples collected, up to 100000.</source>
        <translation>収集した測定値の数 (最大 100000)。</translation>
    </message>
    <message>
        <source>0 Samples</source>
        <translation>0 サンプル</translation>
    </message>
    <message>
        <source>Clear the data buffer.</source>
        <translation>データバッファを消去します。</translation>
    </message>
    <message>
        <source>Clears the data buffer: all samples collected so far are dropped. Shortcut: Ctrl+L.</source>
        <translation>データバッファを消去し、これまでの測定値をすべて破棄します。ショートカット: Ctrl+L</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Save the data buffer to a file.</source>
        <translation>データバッファをファイルに保存します。</translation>
    </message>
    <message>
        <source>Saves the data buffer to a file, as it was measured: neither averaged nor zeroed. Shortcut: Ctrl+S.</source>
        <translation>データバッファを測定されたまま保存します (平均もゼロ補正もなし)。ショートカット: Ctrl+S</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Show controls</source>
        <translation>操作部を表示</translation>
    </message>
    <message>
        <source>Shows or hides the controls of the plot and of the acquisition.</source>
        <translation>プロットと収集の操作部を表示または非表示にします。</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Y range</source>
        <translation>Y 範囲</translation>
    </message>
    <message>
        <source>Y:</source>
        <translation>Y:</translation>
    </message>
    <message>
        <source>Set the range of the Y axis.</source>
        <translation>Y 軸の範囲を設定します。</translation>
    </message>
    <message>
        <source>Set the Y axis to start at 0.</source>
        <translation>Y 軸を 0 から始めます。</translation>
    </message>
    <message>
        <source>Positive Y range only</source>
        <translation>正の Y 範囲のみ</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Running average</source>
        <translation>移動平均</translation>
    </message>
    <message>
        <source>Apply running average to all data.</source>
        <translation>すべてのデータに移動平均を適用します。</translation>
    </message>
    <message>
        <source>No Avg</source>
        <translation>平均なし</translation>
    </message>
    <message>
        <source>10x Avg</source>
        <translation>10 回平均</translation>
    </message>
    <message>
        <source>100x Avg</source>
        <translation>100 回平均</translation>
    </message>
    <message>
        <source>1000x Avg</source>
        <translation>1000 回平均</translation>
    </message>
    <message>
        <source>Display derivative data.</source>
        <translation>データの微分を表示します。</translation>
    </message>
    <message>
        <source>Derivative</source>
        <translation>微分</translation>
    </message>
    <message>
        <source>d/dx</source>
        <translation>d/dx</translation>
    </message>
    <message>
        <source>Subtract current values from all data.</source>
        <translation>現在の値をすべてのデータから差し引きます。</translation>
    </message>
    <message>
        <source>Subtracts the current value of each channel from all of its data. What is saved is not changed. Shortcut: Ctrl+0.</source>
        <translation>各チャンネルの現在値をそのすべてのデータから差し引きます。保存されるデータは変わりません。ショートカット: Ctrl+0</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>ゼロ</translation>
    </message>
    <message>
        <source>Undo zero subtraction.</source>
        <translation>ゼロ補正を解除します。</translation>
    </message>
    <message>
        <source>Undo zero subtraction</source>
        <translation>ゼロ補正を解除</translation>
    </message>
    <message>
        <source>Shows the data as it was measured again. Green while a zero is subtracted.</source>
        <translation>データを測定されたままの表示に戻します。ゼロ補正中は緑色です。</translation>
    </message>
    <message>
        <source>Acquisition period</source>
        <translation>収集周期</translation>
    </message>
    <message>
        <source>Period </source>
        <translation>周期 </translation>
    </message>
    <message>
        <source>Time from one sample to the next. A change clears the data buffer.</source>
        <translation>測定値と次の測定値の間隔。変更するとデータバッファが消去されます。</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>高速</translation>
    </message>
    <message>
        <source>100 ms</source>
        <translation>100 ms</translation>
    </message>
    <message>
        <source>1 s</source>
        <translation>1 s</translation>
    </message>
    <message>
        <source>10 s</source>
        <translation>10 s</translation>
    </message>
    <message>
        <source>Has the instrument collect samples for an interval and hand them over together.</source>
        <translation>装置が一定時間測定値をため、まとめて渡すようにします。</translation>
    </message>
    <message>
        <source>Buffered Interval</source>
        <translation>バッファ間隔</translation>
    </message>
    <message>
        <source>Buffered interval in seconds</source>
        <translation>バッファ間隔 (秒)</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Remove the samples</source>
        <translation>測定値を削除(&amp;R)</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>周期</translation>
    </message>
    <message>
        <source>Another period begins with an empty buffer.</source>
        <translation>周期を変えると空のバッファから始まります。</translation>
    </message>
    <message>
        <source>Strip</source>
        <translation>ストリップ</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>スコープ</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>ヒストグラム</translation>
    </message>
    <message>
        <source>2D</source>
        <translation>2D</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>分割</translation>
    </message>
    <message>
        <source>Plot mode: %1</source>
        <translation>プロットモード: %1</translation>
    </message>
    <message>
        <source>Save Data File</source>
        <translation>データファイルを保存</translation>
    </message>
    <message>
        <source>CSV File (*.csv)</source>
        <translation>CSV ファイル (*.csv)</translation>
    </message>
    <message>
        <source>Save Data</source>
        <translation>データを保存</translation>
    </message>
    <message>
        <source>Error saving data file.</source>
        <translation>データファイルの保存中にエラーが発生しました。</translation>
    </message>
    <message>
        <source>All samples are removed from the buffer.</source>
        <translation>すべての測定値がバッファから削除されます。</translation>
    </message>
    <message>
        <source>%1x Avg</source>
        <translation>%1 回平均</translation>
    </message>
    <message>
        <source>Zeroed</source>
        <translation>ゼロ補正済み</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>正規化</translation>
    </message>
    <message>
        <source>Saving data</source>
        <translation>データを保存中</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScopePlotView</name>
    <message>
        <source>no reading</source>
        <translation>測定値なし</translation>
    </message>
    <message>
        <source>Marker 1</source>
        <translation>マーカー 1</translation>
    </message>
    <message>
        <source>Marker 2</source>
        <translation>マーカー 2</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>周期</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>周波数</translation>
    </message>
    <message>
        <source>Delta</source>
        <translation>差</translation>
    </message>
    <message>
        <source>Readings</source>
        <translation>測定値</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>欠落</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>合計</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>平均</translation>
    </message>
    <message>
        <source>RMS</source>
        <translation>RMS</translation>
    </message>
    <message>
        <source>Std. Dev</source>
        <translation>標準偏差</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Integral</source>
        <translation>積分</translation>
    </message>
    <message>
        <source>Covered</source>
        <translation>測定時間</translation>
    </message>
    <message>
        <source>Slope</source>
        <translation>傾き</translation>
    </message>
    <message>
        <source>Scope plot</source>
        <translation>スコープのプロット</translation>
    </message>
    <message>
        <source>%1 Samples</source>
        <translation>%1 サンプル</translation>
    </message>
    <message>
        <source>Relative Value</source>
        <translation>相対値</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>数値</translation>
    </message>
    <message>
        <source>Not on a logarithmic axis, 0 or negative: %1</source>
        <translation>対数軸に表示できません (0 または負): %1</translation>
    </message>
    <message>
        <source>no readings</source>
        <translation>測定値なし</translation>
    </message>
    <message>
        <source>Time from the newest reading (%1)</source>
        <translation>最新の測定値からの時間 (%1)</translation>
    </message>
    <message>
        <source>Time (local, %1)</source>
        <translation>時刻 (現地、%1)</translation>
    </message>
    <message>
        <source>Time (UTC)</source>
        <translation>時刻 (UTC)</translation>
    </message>
    <message>
        <source>the readings begin at %1</source>
        <translation>測定値は %1 から始まります</translation>
    </message>
    <message>
        <source>%1 from the trigger</source>
        <translation>トリガーから %1</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>他 %n 個</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, held</source>
        <translation>%1、ホールド中</translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation>%1、ライブ</translation>
    </message>
    <message>
        <source>kept in a block only</source>
        <translation>ブロックにのみ保存</translation>
    </message>
    <message>
        <source>not known: older readings are kept in blocks</source>
        <translation>不明: 古い測定値はブロックで保存されています</translation>
    </message>
    <message>
        <source>From</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>To</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Not drawn: %1 (another unit; two are shown)</source>
        <translation>描画なし: %1 (別の単位; 表示は 2 つまで)</translation>
    </message>
    <message>
        <source>Not drawn: %1 (another unit; one is shown)</source>
        <translation>描画なし: %1 (別の単位; 表示は 1 つ)</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>チャンネル</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXSpectrogram</name>
    <message>
        <source>2D Plot</source>
        <translation>2D プロット</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>データなし</translation>
    </message>
    <message>
        <source>Calculations</source>
        <translation>計算結果</translation>
    </message>
    <message>
        <source>Mean X</source>
        <translation>平均 X</translation>
    </message>
    <message>
        <source>NaN</source>
        <translation>NaN</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>平均 Y</translation>
    </message>
    <message>
        <source>σ X</source>
        <translation>σ X</translation>
    </message>
    <message>
        <source>σ Y</source>
        <translation>σ Y</translation>
    </message>
    <message>
        <source>σ Major</source>
        <translation>σ 長軸</translation>
    </message>
    <message>
        <source>σ Minor</source>
        <translation>σ 短軸</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source> °</source>
        <translation> °</translation>
    </message>
    <message>
        <source>Elongation</source>
        <translation>伸び</translation>
    </message>
    <message>
        <source>Integral</source>
        <translation>積分</translation>
    </message>
    <message>
        <source> C</source>
        <translation> C</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>[+ Data Validity]</source>
        <translation>[+ データの有効性]</translation>
    </message>
    <message>
        <source>Display Options</source>
        <translation>表示オプション</translation>
    </message>
    <message>
        <source>Beam Threshold</source>
        <translation>ビームしきい値</translation>
    </message>
    <message>
        <source>Beam threshold</source>
        <translation>ビームしきい値</translation>
    </message>
    <message>
        <source>Discriminator</source>
        <translation>ディスクリミネータ</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>楕円</translation>
    </message>
    <message>
        <source>Size of the ellipse</source>
        <translation>楕円の大きさ</translation>
    </message>
    <message>
        <source> sigma</source>
        <translation> シグマ</translation>
    </message>
    <message>
        <source>Displacement Arrow</source>
        <translation>変位の矢印</translation>
    </message>
    <message>
        <source>Length of the arrow head</source>
        <translation>矢じりの長さ</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>X Origin</source>
        <translation>X 原点</translation>
    </message>
    <message>
        <source>Y Origin</source>
        <translation>Y 原点</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Invert X</source>
        <translation>X を反転</translation>
    </message>
    <message>
        <source>Invert Y</source>
        <translation>Y を反転</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>平滑化</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>スケール</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>正規化</translation>
    </message>
    <message>
        <source>100%</source>
        <translation>100%</translation>
    </message>
    <message>
        <source>50%</source>
        <translation>50%</translation>
    </message>
    <message>
        <source>20%</source>
        <translation>20%</translation>
    </message>
    <message>
        <source>10%</source>
        <translation>10%</translation>
    </message>
    <message>
        <source>5%</source>
        <translation>5%</translation>
    </message>
    <message>
        <source>2%</source>
        <translation>2%</translation>
    </message>
    <message>
        <source>1%</source>
        <translation>1%</translation>
    </message>
    <message>
        <source>0.5%</source>
        <translation>0.5%</translation>
    </message>
    <message>
        <source>0.2%</source>
        <translation>0.2%</translation>
    </message>
    <message>
        <source>0.1%</source>
        <translation>0.1%</translation>
    </message>
    <message>
        <source>.05%</source>
        <translation>.05%</translation>
    </message>
    <message>
        <source>.02%</source>
        <translation>.02%</translation>
    </message>
    <message>
        <source>.01%</source>
        <translation>.01%</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>カラー</translation>
    </message>
    <message>
        <source>Greyscale</source>
        <translation>グレースケール</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>カラー</translation>
    </message>
    <message>
        <source>Viridis</source>
        <translation>Viridis</translation>
    </message>
    <message>
        <source>LR40-8 Plot</source>
        <translation>LR40-8 プロット</translation>
    </message>
    <message>
        <source>DW7/DW9 Plot</source>
        <translation>DW7/DW9 プロット</translation>
    </message>
    <message>
        <source>Position (%1)</source>
        <translation>位置 (%1)</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>the maximum is below the threshold</source>
        <translation>最大値がしきい値を下回っています</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>DATA VALID</source>
        <translation>データ有効</translation>
    </message>
    <message>
        <source>DATA NOT VALID</source>
        <translation>データ無効</translation>
    </message>
    <message>
        <source> (and %1 more)</source>
        <translation> (他 %1 件)</translation>
    </message>
    <message>
        <source>Beam profile</source>
        <translation>ビームプロファイル</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXSplitPlot</name>
    <message>
        <source>Split %1</source>
        <translation>スプリット %1</translation>
    </message>
    <message>
        <source>no beam</source>
        <translation>ビームなし</translation>
    </message>
    <message>
        <source>newest value</source>
        <translation>最新の値</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXStatisticsSetupPage</name>
    <message>
        <source>Data Analysis</source>
        <translation>データ解析</translation>
    </message>
    <message>
        <source>Histogram Peak</source>
        <translation>ヒストグラムのピーク</translation>
    </message>
    <message>
        <source>Number of peaks</source>
        <translation>ピークの数</translation>
    </message>
    <message>
        <source>Peaks:</source>
        <translation>ピーク数:</translation>
    </message>
    <message>
        <source>How many groups of channels are analysed, each with a peak of its own.</source>
        <translation>それぞれ独自のピークを持つチャンネル群をいくつ解析するか。</translation>
    </message>
    <message>
        <source>Center of Gravity</source>
        <translation>重心</translation>
    </message>
    <message>
        <source>Center of gravity above a threshold</source>
        <translation>しきい値以上の重心</translation>
    </message>
    <message>
        <source>Only channels above this part of the highest one count.</source>
        <translation>最大チャンネルに対するこの割合を超えるチャンネルだけを使います。</translation>
    </message>
    <message>
        <source>Threshold:</source>
        <translation>しきい値:</translation>
    </message>
    <message>
        <source>Threshold of the center of gravity in percent</source>
        <translation>重心のしきい値 (パーセント)</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Center of gravity in a window</source>
        <translation>窓内の重心</translation>
    </message>
    <message>
        <source>Only this many channels on either side of the highest one count.</source>
        <translation>最大チャンネルの両側それぞれこの数のチャンネルだけを使います。</translation>
    </message>
    <message>
        <source>Window:</source>
        <translation>窓:</translation>
    </message>
    <message>
        <source>Window of the center of gravity in channels</source>
        <translation>重心の窓 (チャンネル)</translation>
    </message>
    <message>
        <source>Gaussian Fit (regression)</source>
        <translation>ガウスフィット (回帰)</translation>
    </message>
    <message>
        <source>Only channels above this part of the highest one are fitted.</source>
        <translation>最大チャンネルに対するこの割合を超えるチャンネルだけをフィットします。</translation>
    </message>
    <message>
        <source>Threshold of the fit in percent</source>
        <translation>フィットのしきい値 (パーセント)</translation>
    </message>
    <message>
        <source>Only this many channels on either side of the highest one are fitted.</source>
        <translation>最大チャンネルの両側それぞれこの数のチャンネルだけをフィットします。</translation>
    </message>
    <message>
        <source>Window of the fit in channels</source>
        <translation>フィットの窓 (チャンネル)</translation>
    </message>
    <message>
        <source>Peak Threshold:</source>
        <translation>ピークしきい値:</translation>
    </message>
    <message>
        <source>A peak lower than this is not fitted; in the base unit of the data.</source>
        <translation>これより低いピークはフィットしません (データの基本単位)。</translation>
    </message>
    <message>
        <source>Lowest peak that is fitted</source>
        <translation>フィットする最小のピーク</translation>
    </message>
    <message>
        <source>Sum Threshold:</source>
        <translation>合計しきい値:</translation>
    </message>
    <message>
        <source>A profile whose sum is lower than this is not fitted; in the base unit of the data.</source>
        <translation>合計がこれより小さいプロファイルはフィットしません (データの基本単位)。</translation>
    </message>
    <message>
        <source>Lowest sum that is fitted</source>
        <translation>フィットする最小の合計</translation>
    </message>
    <message>
        <source>Display Full Statistics</source>
        <translation>詳細な統計を表示</translation>
    </message>
    <message>
        <source>Shows skewness, kurtosis, signal-to-noise ratio and goodness of the fit too.</source>
        <translation>歪度、尖度、信号雑音比、フィットの良さも表示します。</translation>
    </message>
    <message>
        <source>Χ² Window:</source>
        <translation>Χ² の窓:</translation>
    </message>
    <message>
        <source>The fit is compared with this many channels on either side of the highest one.</source>
        <translation>最大チャンネルの両側それぞれこの数のチャンネルとフィットを比較します。</translation>
    </message>
    <message>
        <source>Chi-square window in channels</source>
        <translation>カイ二乗の窓 (チャンネル)</translation>
    </message>
    <message>
        <source>resets the settings to the initial factory settings</source>
        <translation>設定を工場出荷時の値に戻します</translation>
    </message>
    <message>
        <source>factory reset</source>
        <translation>工場出荷時に戻す</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_CoGHistogramItem</name>
    <message>
        <source>Center of Gravity</source>
        <translation>重心</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_FitHistogramItem</name>
    <message>
        <source>Gaussian Fit</source>
        <translation>ガウスフィット</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_GaussabolaHistogramItem</name>
    <message>
        <source>Gaussabola Fit</source>
        <translation>ガウサボラフィット</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_PrecalculatedFitHistogramItem</name>
    <message>
        <source>Gaussian Fit (Device)</source>
        <translation>ガウスフィット (装置)</translation>
    </message>
    <message>
        <source>Fit failed.</source>
        <translation>フィットに失敗しました。</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_RegressionHistogramItem</name>
    <message>
        <source>Gaussian Fit</source>
        <translation>ガウスフィット</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_StatisticsHistogramItem</name>
    <message>
        <source>Not computed.</source>
        <translation>未計算です。</translation>
    </message>
    <message>
        <source>Not enough channels.</source>
        <translation>チャンネルが足りません。</translation>
    </message>
    <message>
        <source>Peak below threshold.</source>
        <translation>ピークがしきい値以下です。</translation>
    </message>
    <message>
        <source>Peak on edge.</source>
        <translation>ピークが端にあります。</translation>
    </message>
    <message>
        <source>Signal below threshold.</source>
        <translation>信号がしきい値以下です。</translation>
    </message>
    <message>
        <source>Not enough peak channels.</source>
        <translation>ピークのチャンネルが足りません。</translation>
    </message>
    <message>
        <source>Noise above threshold.</source>
        <translation>ノイズがしきい値を超えています。</translation>
    </message>
    <message>
        <source>Regression failed.</source>
        <translation>回帰に失敗しました。</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::Reader</name>
    <message>
        <source>&quot;%1&quot; means nothing here</source>
        <translation>ここでは「%1」に意味がありません</translation>
    </message>
    <message>
        <source>there is no function &quot;%1&quot;</source>
        <translation>関数「%1」はありません</translation>
    </message>
    <message>
        <source>no channel is called &quot;%1&quot;</source>
        <translation>「%1」というチャンネルはありません</translation>
    </message>
    <message>
        <source>a range of channels ends with a later channel that is not computed</source>
        <translation>チャンネルの範囲は、後ろにある計算でないチャンネルで終わります</translation>
    </message>
    <message>
        <source>a name of a channel is missing, or its bracket is not closed</source>
        <translation>チャンネル名がないか、角括弧が閉じられていません</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RowFormula</name>
    <message>
        <source>this library was built without muparser, which reads expressions</source>
        <translation>このライブラリは、式を読む muparser なしでビルドされています</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::ScopeLegend</name>
    <message>
        <source>Legend</source>
        <translation>凡例</translation>
    </message>
    <message>
        <source>The channels with their newest values. A click, Space or Enter hides a channel or shows it again.</source>
        <translation>チャンネルとその最新値。クリック、Space、Enter でチャンネルの表示と非表示を切り替えます。</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpectrogramPlot</name>
    <message>
        <source>Mean X</source>
        <translation>平均 X</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>平均 Y</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>データなし</translation>
    </message>
    <message>
        <source>Out of bounds</source>
        <translation>範囲外</translation>
    </message>
    <message>
        <source>Channel %1: %2</source>
        <translation>チャンネル %1: %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotLegend</name>
    <message>
        <source>one spot: %1</source>
        <translation>スポット 1 個: %1</translation>
    </message>
    <message>
        <source>one spot below the target: -%1</source>
        <translation>スポット 1 個、目標より下: -%1</translation>
    </message>
    <message>
        <source>above: +%1</source>
        <translation>上: +%1</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotMapView</name>
    <message>
        <source>Row %1
X %2
Y %3
Dose %4
Sigma %5</source>
        <translation>行 %1
X %2
Y %3
線量 %4
シグマ %5</translation>
    </message>
    <message>
        <source>No spots in this map</source>
        <translation>このマップにスポットはありません</translation>
    </message>
    <message>
        <source>No spots</source>
        <translation>スポットなし</translation>
    </message>
    <message>
        <source>No spots in the map to compare with</source>
        <translation>比較するマップにスポットはありません</translation>
    </message>
    <message>
        <source>Spots to compare with lie outside of this map</source>
        <translation>比較するスポットがこのマップの外にあります</translation>
    </message>
    <message>
        <source>Spots that cannot be drawn: %1</source>
        <translation>描画できないスポット: %1</translation>
    </message>
    <message>
        <source>Spots to compare with that cannot be drawn: %1</source>
        <translation>描画できない比較スポット: %1</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>スポットマップ</translation>
    </message>
    <message>
        <source>Spots: %1</source>
        <translation>スポット: %1</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotMapWidget</name>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>スポットマップ</translation>
    </message>
    <message>
        <source>x(mm):</source>
        <translation>x (mm):</translation>
    </message>
    <message>
        <source>y(mm):</source>
        <translation>y (mm):</translation>
    </message>
    <message>
        <source>dose(Gp):</source>
        <translation>線量 (Gp):</translation>
    </message>
    <message>
        <source>The spots</source>
        <translation>スポット</translation>
    </message>
    <message>
        <source>Actual</source>
        <translation>実測</translation>
    </message>
    <message>
        <source>Blue where there is more dose than in the other map, red where there is less</source>
        <translation>もう一方のマップより線量が多い所は青、少ない所は赤</translation>
    </message>
    <message>
        <source>Diff</source>
        <translation>差</translation>
    </message>
    <message>
        <source>The spots, with the difference over them</source>
        <translation>スポットに差を重ねて表示</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>重ね表示</translation>
    </message>
    <message>
        <source>X Position (mm)</source>
        <translation>X 位置 (mm)</translation>
    </message>
    <message>
        <source>Y Position (mm)</source>
        <translation>Y 位置 (mm)</translation>
    </message>
    <message>
        <source>dose:</source>
        <translation>線量:</translation>
    </message>
    <message>
        <source>dose(%1):</source>
        <translation>線量 (%1):</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::StatisticsLabels</name>
    <message>
        <source>N/A</source>
        <translation>なし</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::TimeSpanBox</name>
    <message>
        <source>Time span</source>
        <translation>時間幅</translation>
    </message>
    <message>
        <source>Time that the chart shows: choose one, or type 90 s, 2 h, 1.5 min or all.</source>
        <translation>チャートに表示する時間: 選ぶか、90 s、2 h、1.5 min、すべて のように入力します。</translation>
    </message>
</context>
</TS>
