<# for value: "i" from: "1" to: "40000" do: "0123456789" #>
<# use param: "Missing" #>