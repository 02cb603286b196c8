index({
code:[{{ range site.RegularPages }}{{ .Params.code | jsonify }},{{ end }}],
name:[{{ range site.RegularPages }}{{ .Title | jsonify }},{{ end }}],
price:[{{ range site.RegularPages }}{{ .Params.price | jsonify }},{{ end }}],
filters:[{{ range site.RegularPages }}{{ index .Params.filter1s 0 | jsonify }},{{ index .Params.filter2s 0 | jsonify }},{{ index .Params.filter3s 0 | jsonify }},{{ index .Params.filter4s 0 | jsonify }},{{ index .Params.filter5s 0 | jsonify }},{{ end }}]
})
